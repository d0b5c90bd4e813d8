# cpack -G DEB makes three packages: the library, what programs are built with, and the command.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "The Cardwright developers <cardwright@example.org>")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_COMPONENTS_ALL dev)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_CURRENT_BINARY_DIR}/src)

# cardwright_describe_package(COMPONENT NAME SECTION CONTENTS)
macro(cardwright_describe_package component name section contents)
  set(CPACK_DEBIAN_${component}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${component}_PACKAGE_SECTION ${section})
  set(CPACK_COMPONENT_${component}_DESCRIPTION
      "Versions 2.1, 3.0 and 4.0, however damaged; it tells what it repaired.\nThis package has ${contents}.")
  string(TOLOWER ${component} lower)
  install(
    FILES LICENSE
    DESTINATION share/doc/${name}
    RENAME copyright
    COMPONENT ${lower} EXCLUDE_FROM_ALL)
  install(
    FILES NOTICE
    DESTINATION share/doc/${name}
    COMPONENT ${lower} EXCLUDE_FROM_ALL)
  install(
    DIRECTORY licenses
    DESTINATION share/doc/${name}
    COMPONENT ${lower} EXCLUDE_FROM_ALL)
endmacro()

# What needs ICU's own files is a program that links the static library.
cardwright_describe_package(DEV libcardwright-dev libdevel "what programs are built with")
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS libicu-dev)

if(CARDWRIGHT_BUILD_SHARED)
  set(CARDWRIGHT_PACKAGE libcardwright${CARDWRIGHT_ABI})
  list(APPEND CPACK_COMPONENTS_ALL lib)
  cardwright_describe_package(LIB ${CARDWRIGHT_PACKAGE} libs "the shared library")
  set(CPACK_DEBIAN_LIB_PACKAGE_GENERATE_SHLIBS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
  string(PREPEND CPACK_DEBIAN_DEV_PACKAGE_DEPENDS
         "${CARDWRIGHT_PACKAGE} (= ${PROJECT_VERSION}), ")
endif()

if(CARDWRIGHT_BUILD_TOOL)
  list(APPEND CPACK_COMPONENTS_ALL tool)
  cardwright_describe_package(TOOL cardwright utils "the command")
  if(CARDWRIGHT_BUILD_SHARED AND BUILD_SHARED_LIBS)
    set(CPACK_DEBIAN_TOOL_PACKAGE_DEPENDS "${CARDWRIGHT_PACKAGE} (>= ${PROJECT_VERSION})")
  endif()
endif()

include(CPack)
