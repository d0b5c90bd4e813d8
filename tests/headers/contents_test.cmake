# No public header shows what the library is made with, and cardwright.h has them all. Both are asked of
# the text, and the first of the compiler too, which knows what is included by what is included.
file(GLOB_RECURSE headers RELATIVE ${INCLUDE} ${INCLUDE}/cardwright/*.h)
file(READ ${INCLUDE}/cardwright/cardwright.h all)
set(inside "unicode/|icu::|(^|[^A-Za-z])U(Char|ErrorCode|_[A-Z])|iconv|rapidjson|CLI/")

foreach(header IN LISTS headers)
  file(STRINGS ${INCLUDE}/${header} lines REGEX "^[^/]*(${inside})")
  if(lines)
    message(FATAL_ERROR "${header} shows ${lines}")
  endif()
  if(NOT header MATCHES "/detail/|/cardwright[.]h$" AND NOT all MATCHES "#include \"${header}\"")
    message(FATAL_ERROR "cardwright.h lacks ${header}")
  endif()
endforeach()

execute_process(
  COMMAND ${COMPILER} -std=c++20 -I${INCLUDE} -M -x c++ ${INCLUDE}/cardwright/cardwright.h
  OUTPUT_VARIABLE included COMMAND_ERROR_IS_FATAL ANY)
if(NOT included MATCHES "vcard_cleaner[.]h")
  message(FATAL_ERROR "the compiler named no header")
endif()
if(included MATCHES "/(unicode/[a-z]+|iconv|rapidjson/[a-z]+)[.]h")
  message(FATAL_ERROR "cardwright.h brings in ${CMAKE_MATCH_1}.h")
endif()
