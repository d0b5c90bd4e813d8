#include "writer/unchanged/quoted_printable_lanes.h"

#include "base/wide_lanes.h"
#include "writer/unchanged/signs.h"

#include <algorithm>
#include <bit>
#include <string_view>

namespace cardwright {

#ifdef CARDWRIGHT_WIDE

namespace {

/// One bit for each byte of a block, the first one lowest.
using Bits = std::uint64_t;

/// So many units are looked at together: the two lanes that are left show where a code or a
/// character goes on behind them.
constexpr std::size_t kUnits = 62;

/// What is no digit has the highest bit set.
constexpr AsciiTable kDigits = [] {
  constexpr std::string_view kAll = "0123456789ABCDEF";
  AsciiTable digits{};
  digits.fill(0x80);
  for (std::size_t value = 0; value < kAll.size(); ++value) {
    digits[static_cast<unsigned char>(kAll[value])] = static_cast<std::uint8_t>(value);
  }
  return digits;
}();

/// Moves each byte to the lane before its own.
constexpr auto kNextLanes = [] {
  std::array<std::uint8_t, 64> lanes{};
  for (std::uint8_t lane = 0; lane + 1U < lanes.size(); ++lane) {
    lanes[lane] = static_cast<std::uint8_t>(lane + 1);
  }
  return lanes;
}();

CARDWRIGHT_WIDE __m512i bytesOf(unsigned value) noexcept {
  return _mm512_set1_epi8(static_cast<char>(value));
}
CARDWRIGHT_WIDE Bits equal(__m512i bytes, unsigned value) noexcept {
  return _mm512_cmpeq_epi8_mask(bytes, bytesOf(value));
}
CARDWRIGHT_WIDE Bits atLeast(__m512i bytes, unsigned value) noexcept {
  return _mm512_cmpge_epu8_mask(bytes, bytesOf(value));
}

/// How many of at most 62 bytes are whole characters of UTF-8 that a value may hold. Behind them
/// are zeros.
CARDWRIGHT_WIDE std::size_t soundBytes(__m512i bytes, std::size_t size) noexcept {
  const Bits beyondAscii = _mm512_movepi8_mask(bytes);
  if (beyondAscii == 0) {
    return size;
  }
  const Bits leads = atLeast(bytes, 0xC0);
  const Bits leadsOfTriples = atLeast(bytes, 0xE0);
  const Bits continuations = beyondAscii & ~leads;
  const Bits expected = leads << 1U | leadsOfTriples << 2U;
  // Neither 0xC0 nor 0xC1 begins anything; characters of four bytes are left to others.
  Bits wrong = (continuations ^ expected) | (leads & ~atLeast(bytes, 0xC2)) | atLeast(bytes, 0xF0);
  if (leadsOfTriples != 0) {
    const Bits behindE0 = equal(bytes, 0xE0) << 1U;
    const Bits behindEd = equal(bytes, 0xED) << 1U;
    const Bits behindEf = equal(bytes, 0xEF) << 1U;
    const Bits isBf = equal(bytes, 0xBF);
    // What needs fewer bytes, surrogates, U+D7FF, and U+FFFD and what is beyond.
    wrong |= (behindE0 & ~atLeast(bytes, 0xA0)) | (behindEd & atLeast(bytes, 0xA0)) |
             ((behindEd & equal(bytes, 0x9F)) << 1U & isBf) |
             ((behindEf & isBf) << 1U & atLeast(bytes, 0xBD));
  }
  if (wrong == 0) {
    return size;
  }
  const auto first = static_cast<std::size_t>(std::countr_zero(wrong));
  // Where a character should go on, all of it is wrong.
  return (expected >> first & 1U) == 0
             ? first
             : static_cast<std::size_t>(63 - std::countl_zero(leads & lowBits(first)));
}

/// Decodes the whole characters that a block begins with, as long as each byte of theirs is written
/// as it is decoded.
CARDWRIGHT_WIDE QuotedPrintableRun decodeBlock(const char16_t* units, std::size_t count,
                                               char* output) noexcept {
  const __m512i block = narrowed(units, count);
  const __m512i lookedUp = lookUp(kDigits, block);
  const __m512i nextLanes = _mm512_loadu_si512(kNextLanes.data());
  const __m512i high = _mm512_permutexvar_epi8(nextLanes, lookedUp);
  const __m512i low = _mm512_permutexvar_epi8(nextLanes, high);
  const Bits codes = equal(block, '=');
  const Bits behindCodes = codes << 1U | codes << 2U;
  // The shift is one of lanes of two bytes.
  const __m512i decoded =
      _mm512_or_si512(_mm512_and_si512(_mm512_slli_epi16(high, 4), bytesOf(0xF0)), low);
  const __m512i bytes = _mm512_mask_mov_epi8(block, codes, decoded);

  const Bits noDigits = _mm512_movepi8_mask(_mm512_or_si512(lookedUp, block));
  const Bits broken = codes & (noDigits >> 1U | noDigits >> 2U);
  const Bits signs = _mm512_movepi8_mask(_mm512_andnot_si512(bytes, lookUp(kSigns, bytes)));
  // Zeros stand behind the units, too.
  const Bits unknown =
      _mm512_movepi8_mask(block) | _mm512_testn_epi8_mask(block, block) | equal(block, '\\');
  const Bits stops = broken | (codes & signs) | (unknown & ~behindCodes);
  const auto end = static_cast<std::size_t>(std::countr_zero(stops));
  const Bits kept = lowBits(end) & ~behindCodes;
  const __m512i packed = _mm512_maskz_compress_epi8(kept, bytes);
  _mm512_storeu_si512(output, packed);

  const std::size_t sound = soundBytes(packed, static_cast<std::size_t>(std::popcount(kept)));
  const Bits unsound = kept & ~_pdep_u64(lowBits(sound), kept);
  return {unsound == 0 ? end : static_cast<std::size_t>(std::countr_zero(unsound)), sound};
}

} // namespace

QuotedPrintableRun decodeByWideLanes(TextView value, char* output) noexcept {
  QuotedPrintableRun run{};
  while (run.units < value.size()) {
    const std::size_t count = std::min(value.size() - run.units, kUnits);
    const QuotedPrintableRun block =
        decodeBlock(value.data() + run.units, count, output + run.bytes);
    if (block.units == 0) {
      break;
    }
    run.units += block.units;
    run.bytes += block.bytes;
  }
  return run;
}

#else

QuotedPrintableRun decodeByWideLanes(TextView /*value*/, char* /*output*/) noexcept {
  return {};
}

#endif

} // namespace cardwright
