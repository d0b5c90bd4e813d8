#pragma once

#include "base/ascii.h"
#include "cardwright/character_set.h"
#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

/// The Unicode space separators (general category Zs) and TAB.
[[nodiscard]] const CharacterSet& whitespaceCharacterSet();
/// The Unicode separators (Zs, Zl, Zp), TAB, U+000A to U+000D and U+0085.
[[nodiscard]] const CharacterSet& whitespaceAndNewlineCharacterSet();

namespace detail {
[[nodiscard]] inline bool isWhitespaceAboveAscii(char16_t unit) noexcept {
  return unit == 0xA0 || (unit >= 0x1680 && (unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200A) ||
                                             unit == 0x202F || unit == 0x205F || unit == 0x3000));
}
} // namespace detail

/// Membership of whitespaceCharacterSet.
[[nodiscard]] inline bool isWhitespace(char16_t unit) noexcept {
  return isAscii(unit) ? isSpaceOrTab(unit) : detail::isWhitespaceAboveAscii(unit);
}

/// Membership of whitespaceAndNewlineCharacterSet.
[[nodiscard]] inline bool isWhitespaceOrNewline(char16_t unit) noexcept {
  if (isAscii(unit)) {
    return unit == u' ' || (unit >= 0x09 && unit <= 0x0D);
  }
  return unit == 0x85 || unit == 0x2028 || unit == 0x2029 || detail::isWhitespaceAboveAscii(unit);
}

/// The text without the units at its ends that `test` accepts.
template <typename Test>
[[nodiscard]] TextView trimmed(TextView text, Test test) {
  std::size_t first = 0;
  std::size_t last = text.size();
  while (first < last && test(text[first])) {
    ++first;
  }
  while (last > first && test(text[last - 1])) {
    --last;
  }
  return text.substr(first, last - first);
}

[[nodiscard]] inline TextView trimWhitespace(TextView text) {
  return trimmed(text, isWhitespace);
}

[[nodiscard]] inline TextView trimWhitespaceAndNewlines(TextView text) {
  return trimmed(text, isWhitespaceOrNewline);
}

} // namespace cardwright
