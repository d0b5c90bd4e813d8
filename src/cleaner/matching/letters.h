#pragma once

#include "base/ascii.h"
#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

// Letters without regard to case, as the patterns mean them: by full case folding, so that a few
// letters beyond ASCII stand for ASCII ones.

/// The ASCII letters that a letter beyond ASCII folds to, in upper case; empty when it folds to
/// anything else.
[[nodiscard]] constexpr TextView asciiFolding(char16_t unit) noexcept {
  switch (unit) {
  case 0x00DF: // sharp s
  case 0x1E9E:
    return u"SS";
  case 0x017F: // long s
    return u"S";
  case 0x212A: // Kelvin sign
    return u"K";
  case 0xFB00:
    return u"FF";
  case 0xFB01:
    return u"FI";
  case 0xFB02:
    return u"FL";
  case 0xFB03:
    return u"FFI";
  case 0xFB04:
    return u"FFL";
  case 0xFB05:
  case 0xFB06:
    return u"ST";
  default:
    return {};
  }
}

/// Membership of [A-Z] without regard to case. Only letters that fold to a single one are members.
[[nodiscard]] constexpr bool isNameLetter(char16_t unit) noexcept {
  return isAsciiLetter(unit) || unit == 0x017F || unit == 0x212A;
}

/// Membership of [A-Z0-9-] without regard to case.
[[nodiscard]] constexpr bool isNameUnit(char16_t unit) noexcept {
  return isNameLetter(unit) || isAsciiDigit(unit) || unit == u'-';
}

/// Where the part of the text begins that ends at `end` and equals `upperName` without regard to
/// case; npos when there is none. A letter is taken whole or not at all.
[[nodiscard]] constexpr std::size_t startOfNameEndingAt(TextView text, std::size_t end,
                                                        TextView upperName) noexcept {
  std::size_t at = end;
  while (!upperName.empty()) {
    if (at == 0) {
      return TextView::npos;
    }
    const char16_t unit = text[--at];
    if (isAscii(unit)) {
      if (asciiUpper(unit) != upperName.back()) {
        return TextView::npos;
      }
      upperName.remove_suffix(1);
    } else {
      const TextView folding = asciiFolding(unit);
      if (folding.empty() || !upperName.ends_with(folding)) {
        return TextView::npos;
      }
      upperName.remove_suffix(folding.size());
    }
  }
  return at;
}

} // namespace cardwright
