#pragma once

#include "base/short_word.h"
#include "writer/order.h"

#include <cstddef>
#include <cstdint>

namespace cardwright {

/// Where the word ends whose beginning is known.
[[nodiscard]] inline std::size_t endOfWord(TextView text, std::size_t begin,
                                           ShortWord word) noexcept {
  std::size_t end = begin + word.size;
  if (word.size == ShortWord::kMost) {
    while (end < text.size() && isAsciiNameUnit(text[end])) {
      ++end;
    }
  }
  return end;
}

[[nodiscard]] inline std::size_t endOfWord(TextView text, std::size_t begin) noexcept {
  return endOfWord(text, begin, shortWordAt(text, begin));
}

/// orderOf a name that is not well-known, and so without a rank, when it is upper-cased.
[[nodiscard]] inline std::uint64_t orderOfOther(ShortWord word) noexcept {
  std::uint64_t letters = 0;
  for (std::size_t i = 0; i < detail::kFirstOrderUnits; ++i) {
    letters = letters << 8U | (word.letters >> 8 * i & 0xFFU);
  }
  return orderOf(0, TextView()) | letters;
}

} // namespace cardwright
