# Installs everything and moves it: nothing in it may know where it was.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILT} --prefix ${WORK}/first)
file(RENAME ${WORK}/first ${INSTALLED})

set(expected "include/cardwright/cardwright.h" "lib.*/libcardwright[.]a"
             "lib.*/cmake/cardwright/cardwrightConfig[.]cmake" "lib.*/pkgconfig/cardwright[.]pc"
             "share/doc/cardwright/licenses/LGPL-2[.]0[.]txt")
if(SHARED)
  list(APPEND expected "lib.*/libcardwright[.]so" "lib.*/libcardwright[.]so[.]0")
endif()
if(TOOL)
  list(
    APPEND expected "bin/cardwright" "share/man/man1/cardwright[.]1"
    "share/bash-completion/completions/cardwright" "share/zsh/vendor-completions/_cardwright"
    "share/fish/vendor_completions[.]d/cardwright[.]fish")
endif()
if(SERVES)
  list(APPEND expected "libexec/cardwright/cardwright-serve")
endif()
file(GLOB_RECURSE installed LIST_DIRECTORIES false RELATIVE ${INSTALLED} ${INSTALLED}/*)
foreach(file IN LISTS expected)
  set(found ${installed})
  list(FILTER found INCLUDE REGEX "^${file}$")
  if(NOT found)
    message(FATAL_ERROR "no ${file} among ${installed}")
  endif()
endforeach()

set(programs ${installed})
list(FILTER programs INCLUDE REGEX "^bin/")
if(TOOL AND NOT programs STREQUAL "bin/cardwright")
  message(FATAL_ERROR "bin holds ${programs}")
endif()

if(SERVES)
  # It ends at once when nobody can read its address.
  execute_process(COMMAND ${INSTALLED}/bin/cardwright serve OUTPUT_FILE /dev/full
                  ERROR_VARIABLE errors TIMEOUT 20)
  if(NOT errors MATCHES "standard output")
    message(FATAL_ERROR "the installed tool does not serve: ${errors}")
  endif()
  # Without its server, the tool says so, and takes none from where it is called.
  file(COPY ${INSTALLED}/bin/cardwright DESTINATION ${WORK}/alone)
  file(COPY ${INSTALLED}/libexec/cardwright/cardwright-serve DESTINATION ${WORK}/elsewhere)
  execute_process(COMMAND ${WORK}/alone/cardwright serve WORKING_DIRECTORY ${WORK}/elsewhere
                  ERROR_VARIABLE errors OUTPUT_VARIABLE shown RESULT_VARIABLE status TIMEOUT 20)
  if(NOT errors MATCHES "cardwright-serve: No such file" OR shown OR NOT status STREQUAL "1")
    message(FATAL_ERROR "without its server, the tool ends with ${status}: ${errors}${shown}")
  endif()
endif()

foreach(file IN LISTS installed)
  if(file MATCHES "[.](cmake|pc|h)$")
    file(STRINGS ${INSTALLED}/${file} lines REGEX "${SOURCE}|${WORK}")
    if(lines)
      message(FATAL_ERROR "${file} knows a place: ${lines}")
    endif()
  endif()
endforeach()
