# What the tests of packages have in common.

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# Ends the test; ctest looks for this line.
macro(skip reason)
  message(STATUS "skipped: ${reason}")
  return()
endmacro()

# build_project(SOURCE BUILD OPTION…)
function(build_project source build)
  run(${CMAKE_COMMAND} -S ${source} -B ${build} -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${COMPILER}
      -DCMAKE_CXX_FLAGS=${FLAGS} ${ARGN})
  run(${CMAKE_COMMAND} --build ${build})
endfunction()

# Runs a program built from consumer/main.cpp, with environment variables if any are given.
function(expect_greeting program)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env ${ARGN} ${program}
    OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
  if(NOT output STREQUAL "Zoë Ångström\n")
    message(FATAL_ERROR "${program} printed \"${output}\"")
  endif()
endfunction()
