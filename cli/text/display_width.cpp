#include "text/display_width.h"

#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <cstdint>

namespace cardwright::tool {

namespace {

/// Pieces handed to ICU, which counts in 32 bits.
constexpr std::size_t kLongestPiece = std::size_t{1} << 20U;

bool isPlain(char16_t unit) {
  return unit >= 0x20 && unit < 0x7F;
}

bool isWide(UChar32 codePoint) {
  const int width = u_getIntPropertyValue(codePoint, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH;
}

/// Vowels and finals that join the first consonant of a Korean syllable.
bool joinsSyllable(UChar32 codePoint) {
  const int type = u_getIntPropertyValue(codePoint, UCHAR_HANGUL_SYLLABLE_TYPE);
  return type == U_HST_VOWEL_JAMO || type == U_HST_TRAILING_JAMO;
}

std::size_t columnsOfCodePoint(UChar32 codePoint) {
  constexpr std::uint32_t kWithoutWidth = U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK;
  constexpr UChar32 kSoftHyphen = 0xAD;
  if ((U_GET_GC_MASK(codePoint) & kWithoutWidth) != 0 && codePoint != kSoftHyphen) {
    return 0;
  }
  if (joinsSyllable(codePoint)) {
    return 0;
  }
  return isWide(codePoint) ? 2 : 1;
}

std::size_t columnsOfCharacter(TextView character) {
  constexpr std::size_t kEmojiColumns = 2;
  constexpr UChar32 kEmojiPresentation = 0xFE0F;
  std::size_t columns = 0;
  bool isEmoji = false;
  std::size_t at = 0;
  while (at < character.size()) {
    UChar32 codePoint = 0;
    U16_NEXT(character, at, character.size(), codePoint);
    if (codePoint == kEmojiPresentation) {
      return kEmojiColumns;
    }
    columns += columnsOfCodePoint(codePoint);
    isEmoji = isEmoji || u_hasBinaryProperty(codePoint, UCHAR_EXTENDED_PICTOGRAPHIC) != 0;
  }
  return isEmoji ? std::min(columns, kEmojiColumns) : columns;
}

} // namespace

DisplayWidth::~DisplayWidth() {
  ubrk_close(m_characters);
}

std::size_t DisplayWidth::columns(TextView text) {
  const auto other = std::find_if_not(text.begin(), text.end(), isPlain);
  if (other == text.end()) {
    return text.size();
  }
  UErrorCode status = U_ZERO_ERROR;
  if (m_characters == nullptr) {
    m_characters = ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status);
  }
  std::size_t columns = 0;
  for (std::size_t start = 0; start < text.size(); start += kLongestPiece) {
    const TextView piece = text.substr(start, kLongestPiece);
    ubrk_setText(m_characters, piece.data(), static_cast<std::int32_t>(piece.size()), &status);
    if (U_FAILURE(status)) {
      return columns + piece.size(); // no data for ICU: a guess is better than nothing
    }
    std::int32_t from = 0;
    for (std::int32_t to = ubrk_next(m_characters); to != UBRK_DONE; to = ubrk_next(m_characters)) {
      columns += columnsOfCharacter(
          piece.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from)));
      from = to;
    }
  }
  return columns;
}

bool isWideThroughout(TextView text) {
  std::size_t at = 0;
  while (at < text.size()) {
    UChar32 codePoint = 0;
    U16_NEXT(text, at, text.size(), codePoint);
    if (!isWide(codePoint)) {
      return false;
    }
  }
  return !text.empty();
}

} // namespace cardwright::tool
