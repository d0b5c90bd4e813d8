#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <cstdint>

namespace cardwright {

[[nodiscard]] constexpr bool isAscii(char16_t unit) noexcept {
  return unit < 0x80;
}

[[nodiscard]] constexpr bool isAsciiUpper(char16_t unit) noexcept {
  return unit >= u'A' && unit <= u'Z';
}

[[nodiscard]] constexpr bool isAsciiLower(char16_t unit) noexcept {
  return unit >= u'a' && unit <= u'z';
}

[[nodiscard]] constexpr bool isAsciiLetter(char16_t unit) noexcept {
  return isAsciiUpper(unit) || isAsciiLower(unit);
}

[[nodiscard]] constexpr bool isAsciiDigit(char16_t unit) noexcept {
  return unit >= u'0' && unit <= u'9';
}

/// Letters, digits and hyphens, of which names of properties consist.
[[nodiscard]] constexpr bool isAsciiNameUnit(char16_t unit) noexcept {
  constexpr std::uint64_t kDigitsAndHyphen = std::uint64_t{0x3FF} << u'0' | std::uint64_t{1}
                                                                                << u'-';
  constexpr std::uint64_t kLetters = 0x07FFFFFE07FFFFFEU;
  return isAscii(unit) && ((unit < 64 ? kDigitsAndHyphen : kLetters) >> unit % 64 & 1U) != 0;
}

[[nodiscard]] constexpr char16_t asciiUpper(char16_t unit) noexcept {
  return isAsciiLower(unit) ? static_cast<char16_t>(unit - 0x20) : unit;
}

[[nodiscard]] constexpr char16_t asciiLower(char16_t unit) noexcept {
  return isAsciiUpper(unit) ? static_cast<char16_t>(unit + 0x20) : unit;
}

/// Equality without regard to the case of ASCII letters.
[[nodiscard]] constexpr bool equalAsciiIgnoringCase(TextView a, TextView b) noexcept {
  if (a.size() != b.size()) {
    return false;
  }
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (asciiUpper(a[i]) != asciiUpper(b[i])) {
      return false;
    }
  }
  return true;
}

/// Whether a text ends with another, compared likewise.
[[nodiscard]] constexpr bool endsWithAsciiIgnoringCase(TextView text, TextView end) noexcept {
  return text.size() >= end.size() &&
         equalAsciiIgnoringCase(text.substr(text.size() - end.size()), end);
}

[[nodiscard]] constexpr bool isLineTerminator(char16_t unit) noexcept {
  return unit == u'\r' || unit == u'\n';
}

[[nodiscard]] constexpr bool isSpaceOrTab(char16_t unit) noexcept {
  return unit == u' ' || unit == u'\t';
}

[[nodiscard]] constexpr bool isHighSurrogate(char16_t unit) noexcept {
  return (unit & 0xFC00U) == 0xD800U;
}

[[nodiscard]] constexpr bool isLowSurrogate(char16_t unit) noexcept {
  return (unit & 0xFC00U) == 0xDC00U;
}

/// The code point at `position`; a lone surrogate stands for itself.
[[nodiscard]] constexpr char32_t codePointAt(TextView text, std::size_t position) noexcept {
  const char16_t unit = text[position];
  if (isHighSurrogate(unit) && position + 1 < text.size() && isLowSurrogate(text[position + 1])) {
    return 0x10000U + ((unit & 0x3FFU) << 10U) + (text[position + 1] & 0x3FFU);
  }
  return unit;
}

/// How many code units a code point takes.
[[nodiscard]] constexpr std::size_t unitLength(char32_t codePoint) noexcept {
  return codePoint >= 0x10000U ? 2 : 1;
}

/// How many bytes a code point takes in UTF-8; a lone surrogate counts three.
[[nodiscard]] constexpr std::size_t utf8Length(char32_t codePoint) noexcept {
  if (codePoint < 0x80U) {
    return 1;
  }
  if (codePoint < 0x800U) {
    return 2;
  }
  return codePoint < 0x10000U ? 3 : 4;
}

} // namespace cardwright
