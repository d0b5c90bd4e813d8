# Makes the packages, installs them into a root of their own, uses them and removes them again.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)

foreach(program dpkg dpkg-deb dpkg-shlibdeps file)
  find_program(found_${program} ${program})
  if(NOT found_${program})
    skip("there is no ${program}")
  endif()
endforeach()
execute_process(COMMAND id -u OUTPUT_VARIABLE user OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT user EQUAL 0)
  skip("installing packages needs root")
endif()

file(REMOVE_RECURSE ${WORK})
run(${CPACK} -G DEB -B ${WORK}/packages --config ${BUILT}/CPackConfig.cmake)
file(GLOB packages ${WORK}/packages/*.deb)

# What each package says that it needs.
set(depends_libcardwright0 "libc6 .*libicu72 ")
set(depends_libcardwright-dev "libcardwright0 [(]= .*libicu-dev")
set(depends_cardwright "libc6 .*libicu72 ")
set(names "")
foreach(package IN LISTS packages)
  execute_process(COMMAND dpkg-deb --field ${package} Package OUTPUT_VARIABLE name
                  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND dpkg-deb --field ${package} Depends OUTPUT_VARIABLE depends
                  COMMAND_ERROR_IS_FATAL ANY)
  if(NOT depends MATCHES "${depends_${name}}")
    message(FATAL_ERROR "${name} depends on ${depends}")
  endif()
  list(APPEND names ${name})
endforeach()
if(NOT names STREQUAL "cardwright;libcardwright-dev;libcardwright0")
  message(FATAL_ERROR "made ${names}")
endif()

# An empty root, in which nothing else is installed that the packages could need.
set(root ${WORK}/root)
file(MAKE_DIRECTORY ${root}/var/lib/dpkg/info ${root}/var/lib/dpkg/updates
     ${root}/var/lib/dpkg/triggers)
file(TOUCH ${root}/var/lib/dpkg/status)
# What a package runs, it runs out here: there is nothing in there to run. It asks for ldconfig, which
# would look at the machine's own libraries.
file(MAKE_DIRECTORY ${WORK}/bin)
file(CREATE_LINK /bin/true ${WORK}/bin/ldconfig SYMBOLIC)
set(ENV{PATH} "${WORK}/bin:$ENV{PATH}:/usr/sbin:/sbin")
set(dpkg dpkg --root=${root} --force-depends --force-script-chrootless --log=/dev/null)
run(${dpkg} --install ${packages})

set(ENV{LD_LIBRARY_PATH} ${root}/usr/lib)
execute_process(
  COMMAND ${root}/usr/bin/cardwright show --color never ${SOURCE}/examples/contacts.vcf
  OUTPUT_VARIABLE shown COMMAND_ERROR_IS_FATAL ANY)
file(STRINGS ${SOURCE}/examples/contacts.vcf name REGEX "^FN:" LIMIT_COUNT 1)
string(REGEX REPLACE "^FN:" "" name "${name}")
if(NOT shown MATCHES "${name}")
  message(FATAL_ERROR "no ${name} among ${shown}")
endif()
build_project(${CMAKE_CURRENT_LIST_DIR}/consumer ${WORK}/consumer -DCMAKE_PREFIX_PATH=${root}/usr)
expect_greeting(${WORK}/consumer/consumer)

run(${dpkg} --purge ${names})
file(GLOB_RECURSE left LIST_DIRECTORIES true RELATIVE ${root} ${root}/*)
list(FILTER left EXCLUDE REGEX "^var(/lib(/dpkg(/.*)?)?)?$")
if(left)
  message(FATAL_ERROR "removing left ${left}")
endif()
