#include "base/character_properties.h"

#include <unicode/uchar.h>

namespace cardwright {

namespace {

bool hasCategory(char32_t codePoint, uint32_t mask) noexcept {
  return (U_GET_GC_MASK(static_cast<UChar32>(codePoint)) & mask) != 0;
}

} // namespace

bool isLetter(char32_t codePoint) noexcept {
  return hasCategory(codePoint, U_GC_L_MASK);
}

bool isLetterOrNumber(char32_t codePoint) noexcept {
  return hasCategory(codePoint, U_GC_L_MASK | U_GC_N_MASK);
}

} // namespace cardwright
