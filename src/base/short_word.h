#pragma once

#include "base/ascii.h"
#include "cardwright/text.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace cardwright {

/// A word of letters, digits and hyphens as one number, so that it is found in tables at once.
struct ShortWord {
  static constexpr std::size_t kMost = 8;

  std::uint64_t letters = 0; ///< a byte each, the first one lowest, upper-cased
  std::size_t size = 0;      ///< kMost also where the word goes on

  friend bool operator==(const ShortWord&, const ShortWord&) = default;
};

/// The word at `begin`, which is not behind the text's end: its first eight units at most.
[[nodiscard]] constexpr ShortWord shortWordPlainly(TextView text, std::size_t begin) noexcept {
  ShortWord word;
  for (; word.size < ShortWord::kMost && begin + word.size < text.size(); ++word.size) {
    const char16_t unit = text[begin + word.size];
    if (!isAsciiNameUnit(unit)) {
      break;
    }
    word.letters |= static_cast<std::uint64_t>(asciiUpper(unit)) << 8 * word.size;
  }
  return word;
}

[[nodiscard]] inline ShortWord shortWordAt(TextView text, std::size_t begin) noexcept {
#if defined(__SSE2__)
  if (text.size() - begin >= ShortWord::kMost) {
    const auto all = [](int unit) { return _mm_set1_epi16(static_cast<short>(unit)); };
    const auto isBetween = [&](__m128i lanes, int first, int last) {
      return _mm_and_si128(_mm_cmpgt_epi16(lanes, all(first - 1)),
                           _mm_cmplt_epi16(lanes, all(last + 1)));
    };
    // Units beyond 0x7FFF count as negative, so as no letters.
    const __m128i units =
        _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + begin)); // NOLINT
    const __m128i letters = isBetween(_mm_or_si128(units, all(0x20)), u'a', u'z');
    const __m128i others =
        _mm_or_si128(isBetween(units, u'0', u'9'), _mm_cmpeq_epi16(units, all(u'-')));
    const __m128i named = _mm_or_si128(letters, others);
    const auto mask = static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(named, named)));
    const __m128i upper = _mm_andnot_si128(_mm_and_si128(letters, all(0x20)), units);
    const auto bytes =
        static_cast<std::uint64_t>(_mm_cvtsi128_si64(_mm_packus_epi16(upper, upper)));
    ShortWord word;
    word.size = static_cast<std::size_t>(std::countr_one(mask & 0xFFU));
    const std::size_t unused = 8 * (ShortWord::kMost - word.size);
    word.letters = word.size == 0 ? 0 : bytes << unused >> unused;
    return word;
  }
#endif
  return shortWordPlainly(text, begin);
}

} // namespace cardwright
