# Builds the examples alone, against the installed tree, with whatever kind of library it offers.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)

file(REMOVE_RECURSE ${WORK})
build_project(${SOURCE}/examples ${WORK} -DCMAKE_PREFIX_PATH=${INSTALLED})
set(PROGRAMS ${WORK})
include(${SOURCE}/tests/examples/examples_test.cmake)
