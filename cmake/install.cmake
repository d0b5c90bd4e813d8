# Components: lib for programs that run, dev for those who build them, tool for the command.
include(CMakePackageConfigHelpers)

set(CARDWRIGHT_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/cardwright)
set(CARDWRIGHT_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(
  TARGETS cardwright_static
  EXPORT cardwrightStaticTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
set(kinds Static)
if(CARDWRIGHT_BUILD_SHARED)
  install(
    TARGETS cardwright_shared
    EXPORT cardwrightSharedTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT lib NAMELINK_COMPONENT dev)
  list(APPEND kinds Shared)
endif()
foreach(kind IN LISTS kinds)
  install(
    EXPORT cardwright${kind}Targets
    NAMESPACE cardwright::
    DESTINATION ${CARDWRIGHT_CMAKE_DIR}
    COMPONENT dev)
endforeach()
install(DIRECTORY include/cardwright DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)

configure_package_config_file(cmake/cardwrightConfig.cmake.in
                              ${CMAKE_CURRENT_BINARY_DIR}/cardwrightConfig.cmake
                              INSTALL_DESTINATION ${CARDWRIGHT_CMAKE_DIR})
write_basic_package_version_file(
  ${CMAKE_CURRENT_BINARY_DIR}/cardwrightConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(
  FILES ${CMAKE_CURRENT_BINARY_DIR}/cardwrightConfig.cmake
        ${CMAKE_CURRENT_BINARY_DIR}/cardwrightConfigVersion.cmake
  DESTINATION ${CARDWRIGHT_CMAKE_DIR}
  COMPONENT dev)

# Where the prefix is, seen from the file itself, so that an installed tree can be moved.
file(RELATIVE_PATH CARDWRIGHT_PKGCONFIG_PREFIX /prefix/${CARDWRIGHT_PKGCONFIG_DIR} /prefix)
if(CARDWRIGHT_SYSTEM_LIBICONV)
  set(CARDWRIGHT_PKGCONFIG_LIBICONV -liconv)
endif()
configure_file(cmake/cardwright.pc.in cardwright.pc @ONLY)
install(
  FILES ${CMAKE_CURRENT_BINARY_DIR}/cardwright.pc
  DESTINATION ${CARDWRIGHT_PKGCONFIG_DIR}
  COMPONENT dev)

install(FILES LICENSE NOTICE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT licences)
install(DIRECTORY licenses DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT licences)

if(CARDWRIGHT_BUILD_TOOL)
  install(TARGETS cardwright_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
endif()
