#pragma once

#include "cardwright/text.h"
#include "support/combinations.h"
#include "support/time_growth.h"

#include <cstddef>

namespace cardwright {

/// The signs of the grammar, both characters of a line break, a blank, a letter and a digit.
inline constexpr TextView kSigns = u";:,\\\"=.\r\n A1";

/// Sanitizers make it a matter of minutes otherwise.
inline constexpr std::size_t kLongestText = kTimesAreMeaningful ? 5 : 4;

/// Calls `test` with every text of these signs that has at most `longest` of them.
template <typename Test>
std::size_t forEachShortText(Test test, std::size_t longest = kLongestText) {
  std::size_t count = 0;
  forEachCombination(Text(kSigns), longest, [&](const Text& text) {
    test(text);
    ++count;
  });
  return count;
}

} // namespace cardwright
