# Lists the constants of include/cardwright/vocabulary.h in a generated header, so that tests can
# walk over all of them.
set(vocabulary_header ${PROJECT_SOURCE_DIR}/include/cardwright/vocabulary.h)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${vocabulary_header})

# A comment line names the group of the constants behind it.
file(STRINGS ${vocabulary_header} lines REGEX "^(/// @name |inline constexpr TextView )")
set(group "")
set(rows "")
set(count 0)
foreach(line IN LISTS lines)
  if(line MATCHES "^/// @name (.*)$")
    string(REPLACE "\"" "\\\"" group "${CMAKE_MATCH_1}")
  elseif(line MATCHES "^inline constexpr TextView ([A-Za-z0-9_]+) =")
    set(name ${CMAKE_MATCH_1})
    string(APPEND rows "    {\"${name}\", cardwright::${name}, \"${group}\"},\n")
    math(EXPR count "${count} + 1")
  endif()
endforeach()
if(count EQUAL 0)
  message(FATAL_ERROR "no constants found in ${vocabulary_header}")
endif()

set(generated_folder ${PROJECT_BINARY_DIR}/generated/tests)
file(
  CONFIGURE
  OUTPUT ${generated_folder}/vocabulary_constants.h
  @ONLY
  CONTENT
    [[#pragma once

// Made from cardwright/vocabulary.h when the project is configured.

#include "cardwright/text.h"
#include "cardwright/vocabulary.h"

#include <array>
#include <string_view>

namespace cardwright {

struct VocabularyConstant {
  std::string_view name;
  TextView text;
  std::string_view group; ///< the comment that the constant stands under
};

inline constexpr std::array<VocabularyConstant, @count@> kVocabularyConstants{{
@rows@}};

} // namespace cardwright
]])

add_library(cardwright_vocabulary_constants INTERFACE)
target_include_directories(cardwright_vocabulary_constants INTERFACE ${generated_folder})
