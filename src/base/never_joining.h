#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace cardwright {

struct UnitRange {
  char16_t first;
  char16_t last;
};

/// Characters of which no two ever join, CR LF aside: letters, syllables and signs without marks,
/// joiners, jamo, or prepended signs among them. Not all there are, but those of most texts.
inline constexpr UnitRange kNeverJoining[] = {
    {0x0000, 0x02FF}, // Latin
    {0x0370, 0x0482}, // Greek, Cyrillic
    {0x048A, 0x052F}, // Cyrillic
    {0x0531, 0x0556}, // Armenian
    {0x0561, 0x0587}, // Armenian
    {0x05D0, 0x05EA}, // Hebrew
    {0x0620, 0x064A}, // Arabic
    {0x0660, 0x066F}, // Arabic digits and signs
    {0x0671, 0x06D3}, // Arabic
    {0x0904, 0x0939}, // Devanagari
    {0x0E01, 0x0E30}, // Thai
    {0x10A0, 0x10C5}, // Georgian
    {0x10D0, 0x10FF}, // Georgian
    {0x1E00, 0x1FBC}, // Latin, Greek
    {0x2010, 0x2027}, // dashes, quotation marks
    {0x3001, 0x3029}, // punctuation of East Asia
    {0x3041, 0x3096}, // Hiragana
    {0x309B, 0x30FF}, // Katakana
    {0x4E00, 0x9FFF}, // Han
    {0xAC00, 0xD7A3}, // Hangul syllables
    {0xFF01, 0xFF9D}, // wide and narrow forms
};

/// One bit for each unit.
inline constexpr auto kNeverJoins = [] {
  std::array<std::uint64_t, 0x10000 / 64> bits{};
  for (const UnitRange& range : kNeverJoining) {
    for (std::size_t unit = range.first; unit <= range.last; ++unit) {
      bits[unit / 64] |= std::uint64_t{1} << unit % 64;
    }
  }
  return bits;
}();

[[nodiscard]] constexpr bool neverJoins(char16_t unit) noexcept {
  return (kNeverJoins[unit / 64U] >> unit % 64U & 1U) != 0;
}

} // namespace cardwright
