#pragma once

#include "base/ascii.h"
#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

/// Whether XML could hold the character. The last one of each range of XML's own definition counts
/// as invalid: U+D7FF, U+FFFD and U+10FFFF.
[[nodiscard]] constexpr bool isValidInXml(char32_t codePoint) noexcept {
  return codePoint == 0x09 || codePoint == 0x0A || codePoint == 0x0D ||
         (codePoint >= 0x20 && codePoint <= 0xD7FE) ||
         (codePoint >= 0xE000 && codePoint <= 0xFFFC) ||
         (codePoint >= 0x10000 && codePoint <= 0x10FFFE);
}

/// Length of the invalid character at `at`, 0 when the one that stands there is valid.
[[nodiscard]] constexpr std::size_t invalidLengthAt(TextView text, std::size_t at) noexcept {
  const char32_t codePoint = codePointAt(text, at);
  return isValidInXml(codePoint) ? 0 : unitLength(codePoint);
}

} // namespace cardwright
