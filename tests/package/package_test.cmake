file(REMOVE_RECURSE ${WORK})

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILT} --prefix ${WORK}/prefix)
run(${CMAKE_COMMAND}
    -S ${CMAKE_CURRENT_LIST_DIR}/consumer
    -B ${WORK}/build
    -G ${GENERATOR}
    -D CMAKE_CXX_COMPILER=${COMPILER}
    -D CMAKE_CXX_FLAGS=${FLAGS}
    -D CMAKE_PREFIX_PATH=${WORK}/prefix)
run(${CMAKE_COMMAND} --build ${WORK}/build)

execute_process(COMMAND ${WORK}/build/consumer OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
if(NOT output STREQUAL "Zoë Ångström\n")
  message(FATAL_ERROR "the consumer printed \"${output}\"")
endif()

file(GLOB installed LIST_DIRECTORIES false RELATIVE ${WORK}/prefix ${WORK}/prefix/bin/*)
if(NOT installed STREQUAL "bin/cardwright")
  message(FATAL_ERROR "bin holds \"${installed}\"")
endif()
