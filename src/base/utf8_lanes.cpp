#include "base/utf8_lanes.h"

#include "base/fetch.h"
#include "base/utf8_block.h"

#if defined(__x86_64__) && defined(__GNUC__)
#define CARDWRIGHT_BYTE_SHUFFLES
#endif

#ifdef CARDWRIGHT_BYTE_SHUFFLES
#include <array>
#include <bit>
#include <cstdint>
#include <tmmintrin.h>
#endif

namespace cardwright {

#ifdef CARDWRIGHT_BYTE_SHUFFLES

namespace {

#define CARDWRIGHT_SHUFFLING __attribute__((target("ssse3,popcnt")))

using Bits = std::uint32_t; ///< one for each lane

/// For each set of eight lanes the shuffle that moves some bytes of a vector to its front.
using ShuffleTable = std::array<std::array<std::uint8_t, kByteLanes>, 256>;

constexpr std::uint8_t kNoByte = 0x80;

/// Keeps both bytes of the lanes that are in the set, and of the others so many.
constexpr ShuffleTable shufflesThatKeep(std::size_t bytesOfOthers) {
  ShuffleTable table{};
  for (std::size_t set = 0; set < table.size(); ++set) {
    std::size_t used = 0;
    for (std::size_t lane = 0; lane < 8; ++lane) {
      const std::size_t bytes = (set >> lane & 1U) != 0 ? 2 : bytesOfOthers;
      for (std::size_t byte = 0; byte < bytes; ++byte) {
        table[set][used++] = static_cast<std::uint8_t>(2 * lane + byte);
      }
    }
    while (used < kByteLanes) {
      table[set][used++] = kNoByte;
    }
  }
  return table;
}

/// For lanes of four bytes, of which the first four bits of a set say that a second byte is kept
/// and the next four that a third one is: the shuffle, and how many bytes are kept.
struct LengthTable {
  ShuffleTable shuffles;
  std::array<std::uint8_t, 256> lengths;
};

constexpr LengthTable kKeptLengths = [] {
  LengthTable table{};
  for (std::size_t set = 0; set < table.lengths.size(); ++set) {
    std::size_t used = 0;
    for (std::size_t lane = 0; lane < 4; ++lane) {
      const std::size_t bytes = 1 + (set >> lane & 1U) + (set >> (lane + 4) & 1U);
      for (std::size_t byte = 0; byte < bytes; ++byte) {
        table.shuffles[set][used++] = static_cast<std::uint8_t>(4 * lane + byte);
      }
    }
    table.lengths[set] = static_cast<std::uint8_t>(used);
    while (used < kByteLanes) {
      table.shuffles[set][used++] = kNoByte;
    }
  }
  return table;
}();

constexpr ShuffleTable kKeptUnits = shufflesThatKeep(0);
constexpr ShuffleTable kKeptBytes = shufflesThatKeep(1);

const bool kCanShuffle = __builtin_cpu_supports("ssse3") && __builtin_cpu_supports("popcnt");

// NOLINTBEGIN(cppcoreguidelines-pro-type-reinterpret-cast): vectors are loaded from anywhere
template <typename Source>
__m128i load(const Source* source) noexcept {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
}

template <typename Target>
void store(Target* target, __m128i vector) noexcept {
  _mm_storeu_si128(reinterpret_cast<__m128i*>(target), vector);
}
// NOLINTEND(cppcoreguidelines-pro-type-reinterpret-cast)

__m128i sixteen(int value) noexcept {
  return _mm_set1_epi16(static_cast<short>(value));
}

Bits bits(__m128i bytes) noexcept {
  return static_cast<Bits>(_mm_movemask_epi8(bytes));
}

/// Which bytes are at least as large as one beyond ASCII.
Bits atLeast(__m128i bytes, int least) noexcept {
  return bits(_mm_cmpeq_epi8(_mm_max_epu8(bytes, _mm_set1_epi8(static_cast<char>(least))), bytes));
}

/// Eight units, of which those in the set go to the output.
CARDWRIGHT_SHUFFLING std::size_t storeKept(char16_t* output, __m128i units, Bits kept) noexcept {
  store(output, _mm_shuffle_epi8(units, load(kKeptUnits[kept].data())));
  return static_cast<std::size_t>(std::popcount(kept));
}

/// Of each lane that is not ASCII, the character of two bytes that it begins.
__m128i pairs(__m128i first, __m128i second) noexcept {
  const __m128i both = _mm_or_si128(_mm_slli_epi16(_mm_and_si128(first, sixteen(0x1F)), 6),
                                    _mm_and_si128(second, sixteen(0x3F)));
  const __m128i isAscii = _mm_cmplt_epi16(first, sixteen(0x80));
  return _mm_or_si128(_mm_and_si128(isAscii, first), _mm_andnot_si128(isAscii, both));
}

/// The same of lanes that begin characters of three bytes; others are as in `shorter`.
__m128i triples(__m128i first, __m128i second, __m128i third, __m128i shorter) noexcept {
  const __m128i all =
      _mm_or_si128(_mm_or_si128(_mm_slli_epi16(first, 12),
                                _mm_slli_epi16(_mm_and_si128(second, sixteen(0x3F)), 6)),
                   _mm_and_si128(third, sixteen(0x3F)));
  const __m128i isTriple = _mm_cmpgt_epi16(first, sixteen(0xDF));
  return _mm_or_si128(_mm_and_si128(isTriple, all), _mm_andnot_si128(isTriple, shorter));
}

/// Which units cannot be meant by three bytes: those that need fewer, and surrogates.
Bits outOfRange(__m128i low, __m128i high) noexcept {
  const auto isWrong = [](__m128i units) {
    const __m128i range = _mm_and_si128(units, sixteen(0xF800));
    return _mm_or_si128(_mm_cmpeq_epi16(range, _mm_setzero_si128()),
                        _mm_cmpeq_epi16(range, sixteen(0xD800)));
  };
  return bits(_mm_packs_epi16(isWrong(low), isWrong(high)));
}

__m128i lowHalf(__m128i bytes) noexcept {
  return _mm_unpacklo_epi8(bytes, _mm_setzero_si128());
}

__m128i highHalf(__m128i bytes) noexcept {
  return _mm_unpackhi_epi8(bytes, _mm_setzero_si128());
}

// Blocks follow each other without waiting for what the one before held: a character that goes on
// behind its block is made at once, of bytes that the next block has to find sound.
CARDWRIGHT_SHUFFLING DecodedRun decodeShuffling(std::string_view utf8, char16_t* output,
                                                std::size_t room) noexcept {
  std::size_t at = 0;
  std::size_t units = 0;
  Utf8Bits pending = 0; // Which bytes of the next block go on with the last character.
  std::size_t tail = 0; // How many bytes of that character were taken.
  while (utf8.size() - at >= kByteLanes + 2 && room - units >= kByteLanes) {
    const char* const begin = utf8.data() + at;
    const __m128i first = load(begin);
    __m128i low = lowHalf(first);
    __m128i high = highHalf(first);
    const Bits beyondAscii = bits(first);
    if ((beyondAscii | pending) == 0) {
      store(output + units, low);
      store(output + units + kByteLanes / 2, high);
      at += kByteLanes;
      units += kByteLanes;
      continue;
    }
    const Utf8Bits leads = atLeast(first, 0xC0);
    // Characters of four bytes begin with 0xF0 and above; neither 0xC0 nor 0xC1 begins anything.
    const Utf8Block<kByteLanes> block = {.beyondAscii = beyondAscii,
                                         .leads = leads,
                                         .leadsOfTriples = atLeast(first, 0xE0),
                                         .unknown = atLeast(first, 0xF0) |
                                                    (leads & ~Utf8Bits{atLeast(first, 0xC2)}),
                                         .pending = pending};
    if (!block.isSound()) {
      break;
    }
    const __m128i second = load(begin + 1);
    low = pairs(low, lowHalf(second));
    high = pairs(high, highHalf(second));
    if (block.leadsOfTriples != 0) {
      const __m128i third = load(begin + 2);
      low = triples(lowHalf(first), lowHalf(second), lowHalf(third), low);
      high = triples(highHalf(first), highHalf(second), highHalf(third), high);
      if ((outOfRange(low, high) & block.leadsOfTriples & block.kept()) != 0) {
        break;
      }
    }
    units += storeKept(output + units, low, static_cast<Bits>(block.kept() & 0xFFU));
    units += storeKept(output + units, high, static_cast<Bits>(block.kept() >> 8U));
    if (block.unknown != 0) {
      return {at + static_cast<std::size_t>(std::popcount(block.whole())), units};
    }
    pending = block.nextPending();
    tail = block.tail();
    at += kByteLanes;
  }
  // The last character may lack what goes on with it.
  return {at - tail, units - (tail != 0 ? 1 : 0)};
}

/// Writes eight units of at most two bytes each.
CARDWRIGHT_SHUFFLING std::size_t storePairs(char* output, __m128i units) noexcept {
  const __m128i lead = _mm_or_si128(_mm_srli_epi16(units, 6), sixteen(0xC0));
  const __m128i last = _mm_or_si128(_mm_and_si128(units, sixteen(0x3F)), sixteen(0x80));
  const __m128i both = _mm_or_si128(lead, _mm_slli_epi16(last, 8));
  const __m128i isPair = _mm_cmpgt_epi16(units, sixteen(0x7F));
  const __m128i lanes = _mm_or_si128(_mm_and_si128(isPair, both), _mm_andnot_si128(isPair, units));
  const Bits twice = bits(_mm_packs_epi16(isPair, _mm_setzero_si128()));
  store(output, _mm_shuffle_epi8(lanes, load(kKeptBytes[twice].data())));
  return kByteLanes / 2 + static_cast<std::size_t>(std::popcount(twice));
}

/// Writes four units, in lanes of four bytes, of at most three bytes each.
CARDWRIGHT_SHUFFLING std::size_t storeTriples(char* output, __m128i units) noexcept {
  const auto all = [](int value) { return _mm_set1_epi32(value); };
  const auto choose = [](__m128i condition, __m128i yes, __m128i no) {
    return _mm_or_si128(_mm_and_si128(condition, yes), _mm_andnot_si128(condition, no));
  };
  const __m128i low = _mm_or_si128(_mm_and_si128(units, all(0x3F)), all(0x80));
  const __m128i high = _mm_srli_epi32(units, 6);
  const __m128i middle = _mm_or_si128(_mm_and_si128(high, all(0x3F)), all(0x80));
  const __m128i pair = _mm_or_si128(_mm_or_si128(high, all(0xC0)), _mm_slli_epi32(low, 8));
  const __m128i triple = _mm_or_si128(
      _mm_or_si128(_mm_or_si128(_mm_srli_epi32(units, 12), all(0xE0)), _mm_slli_epi32(middle, 8)),
      _mm_slli_epi32(low, 16));
  const __m128i isPair = _mm_cmpgt_epi32(units, all(0x7F));
  const __m128i isTriple = _mm_cmpgt_epi32(units, all(0x7FF));
  const __m128i lanes = choose(isTriple, triple, choose(isPair, pair, units));
  const auto set = static_cast<Bits>(_mm_movemask_ps(_mm_castsi128_ps(isPair)) |
                                     _mm_movemask_ps(_mm_castsi128_ps(isTriple)) << 4);
  store(output, _mm_shuffle_epi8(lanes, load(kKeptLengths.shuffles[set].data())));
  return kKeptLengths.lengths[set];
}

/// Writes eight units of three bytes each.
CARDWRIGHT_SHUFFLING void storeAllTriples(char* output, __m128i units) noexcept {
  constexpr std::int8_t kNone = -1;
  const __m128i first = _mm_or_si128(_mm_srli_epi16(units, 12), sixteen(0xE0));
  const __m128i middle =
      _mm_or_si128(_mm_and_si128(_mm_srli_epi16(units, 6), sixteen(0x3F)), sixteen(0x80));
  const __m128i last = _mm_or_si128(_mm_and_si128(units, sixteen(0x3F)), sixteen(0x80));
  const __m128i beginnings = _mm_or_si128(first, _mm_slli_epi16(middle, 8));
  const auto merged = [&](__m128i fromBeginnings, __m128i fromLast) CARDWRIGHT_SHUFFLING {
    return _mm_or_si128(_mm_shuffle_epi8(beginnings, fromBeginnings),
                        _mm_shuffle_epi8(last, fromLast));
  };
  store(output,
        merged(_mm_setr_epi8(0, 1, kNone, 2, 3, kNone, 4, 5, kNone, 6, 7, kNone, 8, 9, kNone, 10),
               _mm_setr_epi8(kNone, kNone, 0, kNone, kNone, 2, kNone, kNone, 4, kNone, kNone, 6,
                             kNone, kNone, 8, kNone)));
  store(output + kByteLanes,
        merged(_mm_setr_epi8(11, kNone, 12, 13, kNone, 14, 15, kNone, kNone, kNone, kNone, kNone,
                             kNone, kNone, kNone, kNone),
               _mm_setr_epi8(kNone, 10, kNone, kNone, 12, kNone, kNone, 14, kNone, kNone, kNone,
                             kNone, kNone, kNone, kNone, kNone)));
}

/// Whether any of eight units may be none that a value holds: a half of a pair, U+D7FF, or one of
/// the last four.
bool areUncertain(__m128i units, __m128i ranges) noexcept {
  const __m128i last = _mm_cmpeq_epi16(_mm_or_si128(units, sixteen(3)), sixteen(0xFFFF));
  return bits(_mm_or_si128(_mm_or_si128(_mm_cmpeq_epi16(ranges, sixteen(0xD800)), last),
                           _mm_cmpeq_epi16(units, sixteen(0xD7FF)))) != 0;
}

/// As many lanes of ones as a block has kept, from some place on.
constexpr auto kKeptLanes = [] {
  std::array<std::uint16_t, kByteLanes> kept{};
  for (std::size_t i = 0; i < kept.size() / 2; ++i) {
    kept[i] = 0xFFFF;
  }
  return kept;
}();

/// How many units of ASCII the text begins with, as far as whole blocks of them go, which are
/// narrowed.
std::size_t narrowBlocks(TextView text, char* output) noexcept {
  constexpr std::size_t kBlock = kByteLanes;
  std::size_t at = 0;
  for (; text.size() - at >= kBlock; at += kBlock) {
    const __m128i first = load(text.data() + at);
    const __m128i second = load(text.data() + at + kBlock / 2);
    const __m128i high = _mm_and_si128(_mm_or_si128(first, second), sixteen(0xFF80));
    if (bits(_mm_cmpeq_epi16(high, _mm_setzero_si128())) != 0xFFFFU) {
      break;
    }
    store(output + at, _mm_packus_epi16(first, second));
    fetchAhead(text.data() + at);
  }
  return at;
}

CARDWRIGHT_SHUFFLING EncodedRun encodeShuffling(const ReadableText& readable,
                                                char* output) noexcept {
  constexpr std::size_t kUnits = kByteLanes / 2;
  // Where other characters are, ASCII comes and goes: for so long it is not looked for.
  constexpr std::size_t kMixed = 8 * kUnits;
  const __m128i zero = _mm_setzero_si128();
  const TextView text = readable.text;
  std::size_t at = 0;
  char* end = output;
  const auto run = [&]() -> EncodedRun { return {at, static_cast<std::size_t>(end - output)}; };
  while (at < text.size()) {
    const std::size_t narrowed = narrowBlocks(text.substr(at), end);
    at += narrowed;
    end += narrowed;
    for (const std::size_t last = at + kMixed; at < text.size() && at < last; at += kUnits) {
      if (readable.readable(at) < kUnits) {
        return run();
      }
      const std::size_t left = text.size() - at;
      __m128i units = load(text.data() + at);
      if (left < kUnits) {
        // What is behind the text becomes zeros, of a byte each.
        units = _mm_and_si128(units, load(kKeptLanes.data() + kUnits - left));
      }
      const __m128i ranges = _mm_and_si128(units, sixteen(0xF800));
      const Bits shorter = bits(_mm_cmpeq_epi16(ranges, zero));
      if (shorter == 0xFFFFU) {
        end += storePairs(end, units);
      } else if (areUncertain(units, ranges)) {
        return run();
      } else if (shorter == 0) {
        storeAllTriples(end, units);
        end += 3 * kUnits;
      } else {
        end += storeTriples(end, _mm_unpacklo_epi16(units, zero));
        end += storeTriples(end, _mm_unpackhi_epi16(units, zero));
      }
      if (left < kUnits) {
        end -= kUnits - left;
        at = text.size();
        return run();
      }
    }
  }
  return run();
}

} // namespace

bool canDecodeByLanes() noexcept {
  return kCanShuffle;
}

DecodedRun decodeByLanes(std::string_view utf8, char16_t* output, std::size_t room) noexcept {
  return kCanShuffle ? decodeShuffling(utf8, output, room) : DecodedRun{};
}

EncodedRun encodeByLanes(const ReadableText& text, char* output) noexcept {
  return kCanShuffle ? encodeShuffling(text, output) : EncodedRun{};
}

#else

bool canDecodeByLanes() noexcept {
  return false;
}

DecodedRun decodeByLanes(std::string_view /*utf8*/, char16_t* /*output*/,
                         std::size_t /*room*/) noexcept {
  return {};
}

EncodedRun encodeByLanes(const ReadableText& /*text*/, char* /*output*/) noexcept {
  return {};
}

#endif

} // namespace cardwright
