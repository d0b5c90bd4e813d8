# The shared library shows what exports.txt lists, in the order of its bytes, and nothing else.
# cmake --build --preset release --target update_exports writes the list anew.
set(list ${CMAKE_CURRENT_LIST_DIR}/exports.txt)

execute_process(
  COMMAND ${NM} --dynamic --defined-only --demangle ${LIBRARY}
  COMMAND sed "s/^[0-9a-f]* . //"
  COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C sort -u
  OUTPUT_VARIABLE exports COMMAND_ERROR_IS_FATAL ANY)

if(UPDATE)
  file(WRITE ${list} "${exports}")
  return()
endif()

file(MAKE_DIRECTORY ${WORK})
file(WRITE ${WORK}/exports.txt "${exports}")
execute_process(COMMAND diff -u ${list} ${WORK}/exports.txt RESULT_VARIABLE differs)
if(differs)
  message(FATAL_ERROR "exports changed: cmake --build --preset release --target update_exports, "
                      "and raise CARDWRIGHT_ABI when a line went")
endif()
