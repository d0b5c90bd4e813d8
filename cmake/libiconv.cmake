# GNU libiconv repairs broken UTF-8. The C library's own iconv cannot be told to discard what is
# illegal, so a libiconv of the system is taken where there is one, and its source otherwise.

include(CheckCXXSourceCompiles)

if(NOT "$ENV{XDG_CACHE_HOME}" STREQUAL "")
  set(CARDWRIGHT_CACHE $ENV{XDG_CACHE_HOME}/cardwright)
else()
  set(CARDWRIGHT_CACHE $ENV{HOME}/.cache/cardwright)
endif()
set(CARDWRIGHT_LIBICONV_SOURCE
    ${CARDWRIGHT_CACHE}/libiconv-3.0.1
    CACHE PATH "Source of GNU libiconv as scripts/fetch-libiconv leaves it")

find_path(CARDWRIGHT_LIBICONV_INCLUDE_DIR iconv.h)
find_library(CARDWRIGHT_LIBICONV_LIBRARY iconv)
mark_as_advanced(CARDWRIGHT_LIBICONV_INCLUDE_DIR CARDWRIGHT_LIBICONV_LIBRARY)

if(CARDWRIGHT_LIBICONV_LIBRARY)
  set(CMAKE_REQUIRED_INCLUDES ${CARDWRIGHT_LIBICONV_INCLUDE_DIR})
  set(CMAKE_REQUIRED_LIBRARIES ${CARDWRIGHT_LIBICONV_LIBRARY})
  check_cxx_source_compiles(
    "#include <iconv.h>
     int main() {
       int discard = _LIBICONV_VERSION != 0;
       return iconvctl(iconv_open(\"UTF-8\", \"UTF-8\"), ICONV_SET_DISCARD_ILSEQ, &discard);
     }"
    CARDWRIGHT_SYSTEM_LIBICONV)
  unset(CMAKE_REQUIRED_INCLUDES)
  unset(CMAKE_REQUIRED_LIBRARIES)
endif()

if(NOT CARDWRIGHT_SYSTEM_LIBICONV)
  if(NOT EXISTS ${CARDWRIGHT_LIBICONV_SOURCE}/lib/iconv.c)
    message(FATAL_ERROR "GNU libiconv is missing here: run scripts/fetch-libiconv")
  endif()

  # One translation unit, and the name of the locale's charset, which nothing here asks for. Its
  # objects go into our own library, hidden there, so that whoever links that needs nothing more.
  enable_language(C)
  add_library(cardwright_libiconv OBJECT ${CARDWRIGHT_LIBICONV_SOURCE}/lib/iconv.c
                                         ${CARDWRIGHT_LIBICONV_SOURCE}/support/localcharset.c)
  target_include_directories(cardwright_libiconv PRIVATE ${CARDWRIGHT_LIBICONV_SOURCE}/support)
  target_compile_definitions(cardwright_libiconv PRIVATE ICONV_CONST=const)
  target_compile_options(cardwright_libiconv PRIVATE -w)
  set_target_properties(cardwright_libiconv PROPERTIES C_VISIBILITY_PRESET hidden)
endif()

# Gives `source`, the one file that calls libiconv, the header that belongs to it.
function(cardwright_compile_with_libiconv source)
  if(CARDWRIGHT_SYSTEM_LIBICONV)
    set(include_dir ${CARDWRIGHT_LIBICONV_INCLUDE_DIR})
  else()
    set(include_dir ${CARDWRIGHT_LIBICONV_SOURCE}/support)
  endif()
  set_source_files_properties(${source} PROPERTIES INCLUDE_DIRECTORIES ${include_dir})
endfunction()

function(cardwright_link_libiconv target)
  if(CARDWRIGHT_SYSTEM_LIBICONV)
    target_link_libraries(${target} PRIVATE ${CARDWRIGHT_LIBICONV_LIBRARY})
  else()
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:cardwright_libiconv>)
  endif()
endfunction()
