# Builds a project of its own against the installed tree: the kind of library that it asks for.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)

file(REMOVE_RECURSE ${WORK})
build_project(${CMAKE_CURRENT_LIST_DIR}/consumer ${WORK} -DKIND=${KIND} -DCMAKE_PREFIX_PATH=${INSTALLED})
expect_greeting(${WORK}/consumer)

if(READELF)
  execute_process(COMMAND ${READELF} -d ${WORK}/consumer OUTPUT_VARIABLE needs)
  if(NOT needs MATCHES "NEEDED[^\n]*\\[libcardwright[.]so[.]0\\]" OR needs MATCHES "NEEDED[^\n]*libicu")
    message(FATAL_ERROR "the program needs:\n${needs}")
  endif()
endif()
