# Flags for every target of this project; users of the installed package get none of them.

find_program(CARDWRIGHT_CCACHE ccache)
if(CARDWRIGHT_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CARDWRIGHT_CCACHE})
endif()

add_library(cardwright_compiler_flags INTERFACE)
target_compile_options(
  cardwright_compiler_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                                      $<$<BOOL:${CARDWRIGHT_WERROR}>:-Werror>)

if(CARDWRIGHT_SANITIZE)
  add_compile_options(-fsanitize=${CARDWRIGHT_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${CARDWRIGHT_SANITIZE})
  set(ignorelist ${CMAKE_CURRENT_LIST_DIR}/sanitizer-ignorelist.txt)
  add_compile_options($<$<COMPILE_LANG_AND_ID:CXX,Clang>:-fsanitize-ignorelist=${ignorelist}>)
endif()

# A fuzzer learns from the branches that its input takes, in the library too.
if(CARDWRIGHT_BUILD_FUZZERS)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "CARDWRIGHT_BUILD_FUZZERS needs clang++")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_link_options(-fsanitize=fuzzer-no-link)
endif()
