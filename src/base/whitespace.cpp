#include "base/whitespace.h"

namespace cardwright {

namespace detail {

bool isWhitespaceAboveAscii(char16_t unit) noexcept {
  return unit == 0xA0 || unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200A) || unit == 0x202F ||
         unit == 0x205F || unit == 0x3000;
}

} // namespace detail

const CharacterSet& whitespaceCharacterSet() {
  static const CharacterSet set = {{0x09, 0x09},     {0x20, 0x20},     {0xA0, 0xA0},
                                   {0x1680, 0x1680}, {0x2000, 0x200A}, {0x202F, 0x202F},
                                   {0x205F, 0x205F}, {0x3000, 0x3000}};
  return set;
}

const CharacterSet& whitespaceAndNewlineCharacterSet() {
  static const CharacterSet set = {
      {0x09, 0x0D},     {0x20, 0x20},     {0x85, 0x85},     {0xA0, 0xA0},     {0x1680, 0x1680},
      {0x2000, 0x200A}, {0x2028, 0x2029}, {0x202F, 0x202F}, {0x205F, 0x205F}, {0x3000, 0x3000}};
  return set;
}

} // namespace cardwright
