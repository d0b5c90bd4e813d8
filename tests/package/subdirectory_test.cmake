# A project with rules of its own takes this one in, and keeps them: see its CMakeLists.txt. Without
# optimisation and with precompiled headers, for its library is compiled anew.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)

file(REMOVE_RECURSE ${WORK})
build_project(${CMAKE_CURRENT_LIST_DIR}/embedder ${WORK}
              -DCMAKE_C_COMPILER=${C_COMPILER} -DCARDWRIGHT_SOURCE=${SOURCE}
              -DCARDWRIGHT_PRECOMPILE=ON)
expect_greeting(${WORK}/embedder)

execute_process(
  COMMAND ${CMAKE_COMMAND} --install ${WORK} --prefix ${WORK}/prefix COMMAND_ERROR_IS_FATAL ANY)
file(GLOB_RECURSE installed RELATIVE ${WORK}/prefix ${WORK}/prefix/*)
if(NOT installed STREQUAL "bin/embedder")
  message(FATAL_ERROR "installing the other project brought ${installed}")
endif()
