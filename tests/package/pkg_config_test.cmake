# Compiles against the installed tree with what pkg-config says, for both kinds of library.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)

find_program(PKG_CONFIG pkg-config)
if(NOT PKG_CONFIG)
  skip("there is no pkg-config")
endif()

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
file(GLOB_RECURSE file ${INSTALLED}/*/cardwright.pc)
get_filename_component(folder ${file} DIRECTORY)
get_filename_component(libraries ${folder} DIRECTORY)
set(ENV{PKG_CONFIG_PATH} ${folder})
separate_arguments(FLAGS UNIX_COMMAND "${FLAGS}")

# compile(PROGRAM OPTION PKG-CONFIG-OPTION): the option is for the compiler.
function(compile program option)
  execute_process(
    COMMAND ${PKG_CONFIG} ${ARGN} --cflags --libs cardwright
    OUTPUT_VARIABLE said COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(said UNIX_COMMAND "${said}")
  run(${COMPILER} -std=c++20 ${FLAGS} ${option} ${CMAKE_CURRENT_LIST_DIR}/consumer/main.cpp -o
      ${WORK}/${program} ${said})
endfunction()

compile(shared "")
expect_greeting(${WORK}/shared LD_LIBRARY_PATH=${libraries})
compile(static -static --static)
expect_greeting(${WORK}/static)
