#include "base/scan_lanes.h"

#include "base/ascii.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace cardwright {

namespace {

constexpr bool isPrefixLetter(char16_t unit) noexcept {
  return asciiLower(unit) == u'x' || asciiLower(unit) == u'd';
}

constexpr bool isOddInHeader(char16_t unit) noexcept {
  return unit == u'"' || unit == u'\\' || unit == u'&' || unit == u'\0' || !isAscii(unit);
}

constexpr char16_t kFirstUncertain = 0xD7FF;

constexpr bool isUnplain(char16_t unit) noexcept {
  return unit < u' ' || unit == u',' || unit == u';' || unit == u'\\' || unit == 0x7F ||
         unit >= kFirstUncertain;
}

/// Whether a ";" or "=" lacks what should stand behind it: a parameter's name or value.
constexpr bool isGap(char16_t sign, char16_t next) noexcept {
  return (sign == u';' && (next == u';' || next == u'=' || next == u':')) ||
         (sign == u'=' && (next == u';' || next == u',' || next == u':'));
}

/// Goes on with a piece that was looked at from `begin` to `at`.
void lookAtValue(TextView text, std::size_t begin, std::size_t at, ValueMarks& marks) noexcept {
  for (; at < text.size() && !isLineTerminator(text[at]); ++at) {
    const char16_t unit = text[at];
    marks.hasColon = marks.hasColon || unit == u':';
    marks.hasAmpersand = marks.hasAmpersand || unit == u'&';
    marks.hasPrefixHyphen =
        marks.hasPrefixHyphen || (unit == u'-' && at > begin && isPrefixLetter(text[at - 1]));
  }
  marks.end = at;
}

/// Goes on with a header that was looked at from `begin` to `at`.
void lookAtHeader(TextView text, std::size_t begin, std::size_t at, bool hasSemicolon,
                  HeaderMarks& marks) noexcept {
  const auto hasGapBefore = [&](std::size_t end) {
    return end > begin && end < text.size() && isGap(text[end - 1], text[end]);
  };
  for (; at < text.size() && text[at] != u':' && !isLineTerminator(text[at]); ++at) {
    marks.hasDot = marks.hasDot || text[at] == u'.';
    marks.isOdd = marks.isOdd || isOddInHeader(text[at]);
    marks.hasGaps = marks.hasGaps || isSpaceOrTab(text[at]) || hasGapBefore(at);
    if (text[at] == u';' && !hasSemicolon) {
      marks.nameEnd = at;
      hasSemicolon = true;
    }
  }
  marks.end = at;
  marks.hasGaps = marks.hasGaps || hasGapBefore(at);
  marks.nameEnd = hasSemicolon ? marks.nameEnd : at;
  marks.hasColon = at < text.size() && text[at] == u':';
}

#if defined(__SSE2__)

constexpr std::size_t kLanes = 16;

/// One bit for each lane.
using Bits = unsigned;

__m128i loadUnits(const char16_t* units) noexcept {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(units)); // NOLINT: unaligned by design
}

/// Sixteen units as bytes. Units beyond a byte become 0xFF or 0, which are no signs of the syntax.
class Lanes {
 public:
  Lanes(TextView text, std::size_t at) noexcept
      : m_units(_mm_packus_epi16(loadUnits(text.data() + at),
                                 loadUnits(text.data() + at + kLanes / 2))) {}

  [[nodiscard]] Bits equal(char sign) const noexcept { return bits(isEqual(sign)); }

  [[nodiscard]] Bits lineTerminators() const noexcept { return bits(areLineTerminators()); }

  /// Where anything is that ends a value or is marked in it.
  [[nodiscard]] Bits signsInValue() const noexcept {
    return bits(_mm_or_si128(_mm_or_si128(areLineTerminators(), isEqual('-')),
                             _mm_or_si128(isEqual(':'), isEqual('&'))));
  }

  [[nodiscard]] Bits oddInHeader() const noexcept {
    const __m128i odd = _mm_or_si128(_mm_or_si128(isEqual('"'), isEqual('\\')),
                                     _mm_or_si128(isEqual('&'), isEqual('\0')));
    // The highest bit of a lane says by itself that the unit is not ASCII.
    return bits(_mm_or_si128(odd, m_units));
  }

  [[nodiscard]] Bits blanks() const noexcept {
    return bits(_mm_or_si128(isEqual(' '), isEqual('\t')));
  }

  [[nodiscard]] Bits prefixLetters() const noexcept {
    const __m128i lower = _mm_or_si128(m_units, _mm_set1_epi8(0x20));
    return bits(_mm_or_si128(_mm_cmpeq_epi8(lower, _mm_set1_epi8('x')),
                             _mm_cmpeq_epi8(lower, _mm_set1_epi8('d'))));
  }

 private:
  static Bits bits(__m128i lanes) noexcept { return static_cast<Bits>(_mm_movemask_epi8(lanes)); }
  [[nodiscard]] __m128i isEqual(char sign) const noexcept {
    return _mm_cmpeq_epi8(m_units, _mm_set1_epi8(sign));
  }
  [[nodiscard]] __m128i areLineTerminators() const noexcept {
    return _mm_or_si128(isEqual('\r'), isEqual('\n'));
  }

  __m128i m_units;
};

/// The bits below the lowest one that is set; all of them when none is.
Bits bitsBelowLowest(Bits bits) noexcept {
  return bits == 0 ? 0xFFFFU : (bits & (0U - bits)) - 1U;
}

std::size_t firstOf(Bits bits) noexcept {
  return static_cast<std::size_t>(std::countr_zero(bits));
}

#endif

} // namespace

ValueMarks marksOfValuePlainly(TextView text, std::size_t begin) noexcept {
  ValueMarks marks;
  lookAtValue(text, begin, begin, marks);
  return marks;
}

HeaderMarks marksOfHeaderPlainly(TextView text, std::size_t begin) noexcept {
  HeaderMarks marks;
  lookAtHeader(text, begin, begin, false, marks);
  return marks;
}

std::size_t findEitherPlainly(TextView text, std::size_t begin, char one, char other) noexcept {
  while (begin < text.size() && text[begin] != static_cast<unsigned char>(one) &&
         text[begin] != static_cast<unsigned char>(other)) {
    ++begin;
  }
  return begin;
}

std::size_t findUnplainPlainly(TextView text, std::size_t begin) noexcept {
  while (begin < text.size() && !isUnplain(text[begin])) {
    ++begin;
  }
  return begin;
}

std::size_t mostUtf8BytesPlainly(TextView text) noexcept {
  std::size_t bytes = 0;
  for (const char16_t unit : text) {
    bytes += unit < 0x80 ? 1U : unit < 0x800 ? 2U : 3U;
  }
  return bytes;
}

#if defined(__SSE2__)

std::size_t mostUtf8Bytes(TextView text) noexcept {
  constexpr std::size_t kUnits = kLanes / 2;
  // Counters of 16 bits, which grow by two at most with each block.
  constexpr std::size_t kMostBlocks = 0x3FFF;
  const auto isAtMost = [](__m128i units, int most) {
    const __m128i beyond = _mm_subs_epu16(units, _mm_set1_epi16(static_cast<short>(most)));
    return _mm_cmpeq_epi16(beyond, _mm_setzero_si128());
  };
  std::size_t saved = 0;
  std::size_t at = 0;
  while (text.size() - at >= kUnits) {
    const std::size_t blocks = std::min((text.size() - at) / kUnits, kMostBlocks);
    __m128i counts = _mm_setzero_si128();
    for (std::size_t block = 0; block < blocks; ++block, at += kUnits) {
      const __m128i units = loadUnits(text.data() + at);
      // A comparison that holds is -1.
      counts = _mm_sub_epi16(counts, _mm_add_epi16(isAtMost(units, 0x7F), isAtMost(units, 0x7FF)));
    }
    const __m128i sums = _mm_madd_epi16(counts, _mm_set1_epi16(1));
    const __m128i halves = _mm_add_epi32(sums, _mm_srli_si128(sums, 8));
    saved += static_cast<std::uint32_t>(
        _mm_cvtsi128_si32(_mm_add_epi32(halves, _mm_srli_si128(halves, 4))));
  }
  return 3 * at - saved + mostUtf8BytesPlainly(text.substr(at));
}

ValueMarks marksOfValue(TextView text, std::size_t begin) noexcept {
  ValueMarks marks;
  std::size_t at = begin;
  for (; text.size() - at >= kLanes; at += kLanes) {
    const Lanes lanes(text, at);
    if (lanes.signsInValue() == 0) {
      continue;
    }
    const Bits terminators = lanes.lineTerminators();
    const Bits inLine = bitsBelowLowest(terminators);
    marks.hasColon = marks.hasColon || (lanes.equal(':') & inLine) != 0;
    marks.hasAmpersand = marks.hasAmpersand || (lanes.equal('&') & inLine) != 0;
    if (const Bits hyphens = lanes.equal('-') & inLine; hyphens != 0 && !marks.hasPrefixHyphen) {
      // The lanes one unit further to the front; the piece's first unit has none before it.
      const Bits before =
          at > begin ? Lanes(text, at - 1).prefixLetters() : lanes.prefixLetters() << 1U;
      marks.hasPrefixHyphen = (hyphens & before) != 0;
    }
    if (terminators != 0) {
      marks.end = at + firstOf(terminators);
      return marks;
    }
  }
  lookAtValue(text, begin, at, marks);
  return marks;
}

HeaderMarks marksOfHeader(TextView text, std::size_t begin) noexcept {
  HeaderMarks marks;
  bool hasSemicolon = false;
  // Behind a ";" or a "=" in the last lane of the block before; one bit each.
  Bits behindSemicolon = 0;
  Bits behindEquals = 0;
  std::size_t at = begin;
  for (; text.size() - at >= kLanes; at += kLanes) {
    const Lanes lanes(text, at);
    const Bits colons = lanes.equal(':');
    const Bits ends = colons | lanes.lineTerminators();
    const Bits inHeader = bitsBelowLowest(ends);
    const Bits semicolons = lanes.equal(';') & inHeader;
    if (!hasSemicolon && semicolons != 0) {
      marks.nameEnd = at + firstOf(semicolons);
      hasSemicolon = true;
    }
    marks.hasDot = marks.hasDot || (lanes.equal('.') & inHeader) != 0;
    marks.isOdd = marks.isOdd || (lanes.oddInHeader() & inHeader) != 0;
    const Bits equals = lanes.equal('=') & inHeader;
    const Bits signs = lanes.equal(';') | colons;
    const Bits gaps = (((semicolons << 1U) | behindSemicolon) & (signs | lanes.equal('='))) |
                      (((equals << 1U) | behindEquals) & (signs | lanes.equal(',')));
    marks.hasGaps = marks.hasGaps || (gaps | (lanes.blanks() & inHeader)) != 0;
    behindSemicolon = semicolons >> (kLanes - 1);
    behindEquals = equals >> (kLanes - 1);
    if (ends != 0) {
      marks.end = at + firstOf(ends);
      marks.nameEnd = hasSemicolon ? marks.nameEnd : marks.end;
      marks.hasColon = text[marks.end] == u':';
      return marks;
    }
  }
  lookAtHeader(text, begin, at, hasSemicolon, marks);
  return marks;
}

std::size_t findEither(TextView text, std::size_t begin, char one, char other) noexcept {
  for (; text.size() - begin >= kLanes; begin += kLanes) {
    const Lanes lanes(text, begin);
    if (const Bits found = lanes.equal(one) | lanes.equal(other); found != 0) {
      return begin + firstOf(found);
    }
  }
  return findEitherPlainly(text, begin, one, other);
}

std::size_t findUnplain(TextView text, std::size_t begin) noexcept {
  constexpr std::size_t kUnits = kLanes / 2;
  const auto all = [](int unit) { return _mm_set1_epi16(static_cast<short>(unit)); };
  // With the highest bit turned around, signed comparisons give the order of units.
  const auto turned = [&](int unit) { return all(unit ^ 0x8000); };
  for (; text.size() - begin >= kUnits; begin += kUnits) {
    const __m128i units = loadUnits(text.data() + begin);
    const __m128i ordered = _mm_xor_si128(units, all(0x8000));
    const __m128i outside = _mm_or_si128(_mm_cmplt_epi16(ordered, turned(u' ')),
                                         _mm_cmpgt_epi16(ordered, turned(kFirstUncertain - 1)));
    const __m128i signs = _mm_or_si128(
        _mm_or_si128(_mm_cmpeq_epi16(units, all(u',')), _mm_cmpeq_epi16(units, all(u';'))),
        _mm_or_si128(_mm_cmpeq_epi16(units, all(u'\\')), _mm_cmpeq_epi16(units, all(0x7F))));
    const auto found = static_cast<Bits>(_mm_movemask_epi8(_mm_or_si128(outside, signs)));
    if (found != 0) {
      return begin + firstOf(found) / 2;
    }
  }
  return findUnplainPlainly(text, begin);
}

std::size_t findDoubleCr(TextView text) noexcept {
  std::size_t at = 0;
  for (; text.size() - at > kLanes; at += kLanes) {
    const Bits crs = Lanes(text, at).equal('\r');
    // The lanes one unit further to the back.
    if (crs != 0) {
      const Bits pairs = crs & Lanes(text, at + 1).equal('\r');
      if (pairs != 0) {
        return at + firstOf(pairs);
      }
    }
  }
  return text.find(u"\r\r", at);
}

#else

std::size_t mostUtf8Bytes(TextView text) noexcept {
  return mostUtf8BytesPlainly(text);
}

std::size_t findUnplain(TextView text, std::size_t begin) noexcept {
  return findUnplainPlainly(text, begin);
}

ValueMarks marksOfValue(TextView text, std::size_t begin) noexcept {
  return marksOfValuePlainly(text, begin);
}

HeaderMarks marksOfHeader(TextView text, std::size_t begin) noexcept {
  return marksOfHeaderPlainly(text, begin);
}

std::size_t findEither(TextView text, std::size_t begin, char one, char other) noexcept {
  return findEitherPlainly(text, begin, one, other);
}

std::size_t findDoubleCr(TextView text) noexcept {
  return text.find(u"\r\r");
}

#endif

} // namespace cardwright
