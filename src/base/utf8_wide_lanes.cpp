#include "base/utf8_wide_lanes.h"

#include "base/fetch.h"
#include "base/utf8_block.h"
#include "base/wide_lanes.h"

#include <algorithm>
#include <bit>

namespace cardwright {

#ifdef CARDWRIGHT_WIDE

namespace {

constexpr std::size_t kUnits = 32;

/// Lanes of two bytes, and of four.
CARDWRIGHT_WIDE __m512i pairsOf(unsigned value) noexcept {
  return _mm512_set1_epi16(static_cast<short>(value));
}
CARDWRIGHT_WIDE __m512i quadsOf(unsigned value) noexcept {
  return _mm512_set1_epi32(static_cast<int>(value));
}

/// Stores the bytes that are not zero, and those that always count, one behind the other.
CARDWRIGHT_WIDE std::size_t storeUsed(char* output, __m512i bytes, __m512i always) noexcept {
  const __m512i counting = _mm512_or_si512(bytes, always);
  const __mmask64 used = _mm512_test_epi8_mask(counting, counting);
  _mm512_storeu_si512(output, _mm512_maskz_compress_epi8(used, bytes));
  return static_cast<std::size_t>(std::popcount(used));
}

/// Encodes 32 units of at most two bytes each, those of two as the mask says.
CARDWRIGHT_WIDE std::size_t storePairs(char* output, __m512i units,
                                       __mmask32 beyondAscii) noexcept {
  const __m512i lead = _mm512_or_si512(_mm512_srli_epi16(units, 6), pairsOf(0x80C0));
  const __m512i last = _mm512_slli_epi16(_mm512_and_si512(units, pairsOf(0x3F)), 8);
  const __m512i lanes = _mm512_mask_mov_epi16(units, beyondAscii, _mm512_or_si512(lead, last));
  return storeUsed(output, lanes, pairsOf(0xFF));
}

/// Encodes sixteen units of at most three bytes each.
CARDWRIGHT_WIDE std::size_t storeTriples(char* output, __m256i sixteen) noexcept {
  const __m512i units = _mm512_cvtepu16_epi32(sixteen);
  const __m512i high = _mm512_srli_epi32(units, 6);
  const __m512i low = _mm512_and_si512(units, quadsOf(0x3F));
  const __m512i middle = _mm512_and_si512(high, quadsOf(0x3F));
  const __m512i pair =
      _mm512_or_si512(_mm512_or_si512(high, quadsOf(0x80C0)), _mm512_slli_epi32(low, 8));
  const __m512i triple =
      _mm512_or_si512(_mm512_or_si512(_mm512_srli_epi32(units, 12), quadsOf(0x8080E0)),
                      _mm512_or_si512(_mm512_slli_epi32(middle, 8), _mm512_slli_epi32(low, 16)));
  const __mmask16 beyondAscii = _mm512_cmpgt_epu32_mask(units, quadsOf(0x7F));
  const __mmask16 beyondPairs = _mm512_cmpgt_epu32_mask(units, quadsOf(0x7FF));
  const __m512i lanes =
      _mm512_mask_mov_epi32(_mm512_mask_mov_epi32(units, beyondAscii, pair), beyondPairs, triple);
  return storeUsed(output, lanes, quadsOf(0xFF));
}

/// Which units may be none of a value.
CARDWRIGHT_WIDE __mmask32 uncertain(__m512i units) noexcept {
  const __m512i ranges = _mm512_and_si512(units, pairsOf(0xF800));
  return _mm512_cmpeq_epi16_mask(ranges, pairsOf(0xD800)) |
         _mm512_cmpeq_epi16_mask(units, pairsOf(0xD7FF)) |
         _mm512_cmpge_epu16_mask(units, pairsOf(0xFFFC));
}

CARDWRIGHT_WIDE EncodedRun encodeWide(TextView text, char* output) noexcept {
  std::size_t at = 0;
  char* end = output;
  while (at < text.size()) {
    const std::size_t count = std::min(text.size() - at, kUnits);
    // What is behind the text becomes zeros, of a byte each.
    const __m512i units =
        _mm512_maskz_loadu_epi16(static_cast<__mmask32>(lowBits(count)), text.data() + at);
    const __mmask32 beyondAscii = _mm512_cmpgt_epu16_mask(units, pairsOf(0x7F));
    const __mmask32 beyondPairs = _mm512_cmpgt_epu16_mask(units, pairsOf(0x7FF));
    if (beyondAscii == 0) {
      const __m256i bytes = _mm512_cvtepi16_epi8(units);
      _mm256_storeu_si256(reinterpret_cast<__m256i*>(end), bytes); // NOLINT: unaligned by design
      end += count;
      at += count;
      fetchAhead(text.data() + at);
    } else if (beyondPairs == 0) {
      end += storePairs(end, units, beyondAscii) - (kUnits - count);
      at += count;
    } else {
      const auto firstUncertain = static_cast<std::size_t>(std::countr_zero(uncertain(units)));
      const std::size_t sound = std::min(count, firstUncertain);
      if (sound == 0) {
        break;
      }
      const std::size_t half = storeTriples(end, _mm512_castsi512_si256(units));
      if (sound > kUnits / 2) {
        storeTriples(end + half, _mm512_extracti64x4_epi64(units, 1));
      }
      const std::uint64_t taken = lowBits(sound);
      end += sound + static_cast<std::size_t>(std::popcount(beyondAscii & taken) +
                                              std::popcount(beyondPairs & taken));
      at += sound;
    }
  }
  return {at, static_cast<std::size_t>(end - output)};
}

CARDWRIGHT_WIDE Utf8Bits atLeast(__m256i bytes, unsigned least) noexcept {
  return _mm256_cmpge_epu8_mask(bytes, _mm256_set1_epi8(static_cast<char>(least)));
}

/// The bytes of a block as lanes of two bytes.
CARDWRIGHT_WIDE __m512i widened(const char* bytes) noexcept {
  return _mm512_cvtepu8_epi16(
      _mm256_loadu_si256(reinterpret_cast<const __m256i*>(bytes))); // NOLINT: unaligned by design
}

/// Which lanes hold what three bytes cannot mean: what needs fewer, and surrogates.
CARDWRIGHT_WIDE Utf8Bits outOfRange(__m512i units) noexcept {
  const __m512i ranges = _mm512_and_si512(units, pairsOf(0xF800));
  return _mm512_testn_epi16_mask(ranges, ranges) | _mm512_cmpeq_epi16_mask(ranges, pairsOf(0xD800));
}

// As in decodeByLanes, a character that goes on behind its block is made at once, of bytes that the
// next block has to find sound.
CARDWRIGHT_WIDE DecodedRun decodeWide(std::string_view utf8, char16_t* output,
                                      std::size_t room) noexcept {
  std::size_t at = 0;
  std::size_t units = 0;
  Utf8Bits pending = 0; // Which bytes of the next block go on with the last character.
  std::size_t tail = 0; // How many bytes of that character were taken.
  while (utf8.size() - at >= kUnits + 2 && room - units >= kUnits) {
    const char* const begin = utf8.data() + at;
    const __m512i first = widened(begin);
    const __m256i bytes =
        _mm256_loadu_si256(reinterpret_cast<const __m256i*>(begin)); // NOLINT: unaligned by design
    const Utf8Bits beyondAscii = _mm256_movepi8_mask(bytes);
    if ((beyondAscii | pending) == 0) {
      _mm512_storeu_si512(output + units, first);
      at += kUnits;
      units += kUnits;
      continue;
    }
    const Utf8Bits leads = atLeast(bytes, 0xC0);
    // Characters of four bytes begin with 0xF0 and above; neither 0xC0 nor 0xC1 begins anything.
    const Utf8Block<kUnits> block = {.beyondAscii = beyondAscii,
                                     .leads = leads,
                                     .leadsOfTriples = atLeast(bytes, 0xE0),
                                     .unknown = atLeast(bytes, 0xF0) |
                                                (leads & ~Utf8Bits{atLeast(bytes, 0xC2)}),
                                     .pending = pending};
    if (!block.isSound()) {
      break;
    }
    const __m512i second = _mm512_and_si512(widened(begin + 1), pairsOf(0x3F));
    const __m512i pair =
        _mm512_or_si512(_mm512_slli_epi16(_mm512_and_si512(first, pairsOf(0x1F)), 6), second);
    __m512i lanes = _mm512_mask_mov_epi16(first, static_cast<__mmask32>(leads), pair);
    if (block.leadsOfTriples != 0) {
      const __m512i third = _mm512_and_si512(widened(begin + 2), pairsOf(0x3F));
      const __m512i triple = _mm512_or_si512(
          _mm512_or_si512(_mm512_slli_epi16(first, 12), _mm512_slli_epi16(second, 6)), third);
      lanes = _mm512_mask_mov_epi16(lanes, static_cast<__mmask32>(block.leadsOfTriples), triple);
      if ((outOfRange(lanes) & block.leadsOfTriples & block.kept()) != 0) {
        break;
      }
    }
    _mm512_storeu_si512(output + units,
                        _mm512_maskz_compress_epi16(static_cast<__mmask32>(block.kept()), lanes));
    units += static_cast<std::size_t>(std::popcount(block.kept()));
    if (block.unknown != 0) {
      return {at + static_cast<std::size_t>(std::popcount(block.whole())), units};
    }
    pending = block.nextPending();
    tail = block.tail();
    at += kUnits;
  }
  // The last character may lack what goes on with it.
  return {at - tail, units - (tail != 0 ? 1 : 0)};
}

} // namespace

EncodedRun encodeByWideLanes(TextView text, char* output) noexcept {
  return encodeWide(text, output);
}

DecodedRun decodeByWideLanes(std::string_view utf8, char16_t* output, std::size_t room) noexcept {
  return decodeWide(utf8, output, room);
}

#else

EncodedRun encodeByWideLanes(TextView /*text*/, char* /*output*/) noexcept {
  return {};
}

DecodedRun decodeByWideLanes(std::string_view /*utf8*/, char16_t* /*output*/,
                             std::size_t /*room*/) noexcept {
  return {};
}

#endif

} // namespace cardwright
