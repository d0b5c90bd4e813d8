#include "base/scan_lanes.h"

#include "base/ascii.h"
#include "base/fetch.h"

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
  return unit == u'\\' || unit == u'&' || unit == u'\0' || !isAscii(unit);
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
    marks.hasQuotes = marks.hasQuotes || text[at] == u'"';
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

/// Units that are looked at as such, where sixteen bytes would not do.
constexpr std::size_t kBlock = kLanes / 2;

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

  /// Where a CR is, or anything beyond ASCII, and perhaps a zero, which what is far beyond becomes.
  [[nodiscard]] Bits unsingle() const noexcept {
    return bits(_mm_or_si128(m_units, _mm_or_si128(isEqual('\r'), isEqual('\0'))));
  }

  [[nodiscard]] Bits lineTerminators() const noexcept { return bits(areLineTerminators()); }

  /// Where anything is that ends a value or is marked in it.
  [[nodiscard]] Bits signsInValue() const noexcept {
    return bits(_mm_or_si128(_mm_or_si128(areLineTerminators(), isEqual('-')),
                             _mm_or_si128(isEqual(':'), isEqual('&'))));
  }

  [[nodiscard]] Bits oddInHeader() const noexcept {
    const __m128i odd = _mm_or_si128(isEqual('\\'), _mm_or_si128(isEqual('&'), isEqual('\0')));
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
Bits belowLowest(Bits bits) noexcept {
  return (bits - 1U) & ~bits;
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

std::size_t findUnsinglePlainly(TextView text, std::size_t begin) noexcept {
  while (begin < text.size() && isAscii(text[begin]) && text[begin] != u'\r') {
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

char16_t unitedPlainly(TextView text) noexcept {
  unsigned united = 0;
  for (const char16_t unit : text) {
    united |= unit;
  }
  return static_cast<char16_t>(united);
}

#if defined(__SSE2__)

char16_t united(TextView text) noexcept {
  if (text.size() < kBlock) {
    return unitedPlainly(text);
  }
  __m128i all = loadUnits(text.data() + text.size() - kBlock);
  for (std::size_t at = 0; text.size() - at > kBlock; at += kBlock) {
    all = _mm_or_si128(all, loadUnits(text.data() + at));
  }
  all = _mm_or_si128(all, _mm_srli_si128(all, 8));
  all = _mm_or_si128(all, _mm_srli_si128(all, 4));
  all = _mm_or_si128(all, _mm_srli_si128(all, 2));
  return static_cast<char16_t>(_mm_extract_epi16(all, 0));
}

/// How many bytes of UTF-8 less than three each unit of a block takes, in the first eight lanes.
__m128i utf8BytesSaved(__m128i units) noexcept {
  const auto isAtMost = [units](int most) {
    const __m128i beyond = _mm_subs_epu16(units, _mm_set1_epi16(static_cast<short>(most)));
    return _mm_cmpeq_epi16(beyond, _mm_setzero_si128());
  };
  // A limit that is kept is minus one.
  const __m128i kept = _mm_add_epi16(isAtMost(0x7F), isAtMost(0x7FF));
  return _mm_sub_epi8(_mm_setzero_si128(), _mm_packs_epi16(kept, kept));
}

/// How many bytes of UTF-8 a block of units takes.
std::size_t utf8BytesOf(__m128i units) noexcept {
  const __m128i sums = _mm_sad_epu8(utf8BytesSaved(units), _mm_setzero_si128());
  return 3 * kBlock - static_cast<std::size_t>(_mm_extract_epi16(sums, 0));
}

/// How many units of a block fit into so many bytes of UTF-8, which do not hold all of
/// them.
/// @param bytes is made what they leave of it
std::size_t unitsWithin(__m128i units, std::size_t& bytes) noexcept {
  constexpr std::uint64_t kEach = 0x0101010101010101U;
  constexpr std::uint64_t kMarks = 0x80 * kEach;
  const auto saved = static_cast<std::uint64_t>(_mm_cvtsi128_si64(utf8BytesSaved(units)));
  // Each byte of the product is the sum of those up to it.
  const std::uint64_t ends = (3 * kEach - saved) * kEach;
  const std::uint64_t fitting = ((bytes * kEach | kMarks) - ends) & kMarks;
  const auto count = static_cast<std::size_t>(std::popcount(fitting));
  bytes -= count == 0 ? 0 : ends >> 8 * (count - 1) & 0xFFU;
  return count;
}

std::size_t mostUtf8Bytes(TextView text) noexcept {
  std::size_t bytes = 0;
  std::size_t at = 0;
  for (; text.size() - at >= kBlock; at += kBlock) {
    bytes += utf8BytesOf(loadUnits(text.data() + at));
  }
  return bytes + mostUtf8BytesPlainly(text.substr(at));
}

std::size_t unitsSurelyWithin(TextView text, std::size_t begin, std::size_t& bytes) noexcept {
  std::size_t at = begin;
  for (; text.size() - at >= kBlock; at += kBlock) {
    const __m128i units = loadUnits(text.data() + at);
    const __m128i surrogates =
        _mm_cmpeq_epi16(_mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xF800))),
                        _mm_set1_epi16(static_cast<short>(0xD800)));
    if (_mm_movemask_epi8(surrogates) != 0) {
      break;
    }
    const std::size_t needed = utf8BytesOf(units);
    if (needed > bytes) {
      return at - begin + unitsWithin(units, bytes);
    }
    bytes -= needed;
  }
  return at - begin;
}

ValueMarks marksOfValue(TextView text, std::size_t begin) noexcept {
  ValueMarks marks;
  std::size_t at = begin;
  for (; text.size() - at >= kLanes; at += kLanes) {
    fetchAhead(text.data() + at);
    const Lanes lanes(text, at);
    if (lanes.signsInValue() == 0) {
      continue;
    }
    const Bits terminators = lanes.lineTerminators();
    const Bits inLine = belowLowest(terminators);
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
  Bits dots = 0;
  Bits quotes = 0;
  Bits odd = 0;
  Bits gaps = 0;
  Bits ends = 0;
  std::size_t at = begin;
  for (; text.size() - at >= kLanes && ends == 0; at += kLanes) {
    const Lanes lanes(text, at);
    const Bits colons = lanes.equal(':');
    ends = colons | lanes.lineTerminators();
    const Bits inHeader = belowLowest(ends);
    const Bits allSemicolons = lanes.equal(';');
    const Bits allEquals = lanes.equal('=');
    const Bits semicolons = allSemicolons & inHeader;
    const Bits equals = allEquals & inHeader;
    if (!hasSemicolon && semicolons != 0) {
      marks.nameEnd = at + firstOf(semicolons);
      hasSemicolon = true;
    }
    dots |= lanes.equal('.') & inHeader;
    quotes |= lanes.equal('"') & inHeader;
    odd |= lanes.oddInHeader() & inHeader;
    const Bits signs = allSemicolons | colons;
    gaps |= (((semicolons << 1U) | behindSemicolon) & (signs | allEquals)) |
            (((equals << 1U) | behindEquals) & (signs | lanes.equal(','))) |
            (lanes.blanks() & inHeader);
    behindSemicolon = semicolons >> (kLanes - 1);
    behindEquals = equals >> (kLanes - 1);
  }
  marks.hasDot = dots != 0;
  marks.hasQuotes = quotes != 0;
  marks.isOdd = odd != 0;
  marks.hasGaps = gaps != 0;
  if (ends != 0) {
    marks.end = at - kLanes + firstOf(ends);
    marks.nameEnd = hasSemicolon ? marks.nameEnd : marks.end;
    marks.hasColon = text[marks.end] == u':';
  } else {
    lookAtHeader(text, begin, at, hasSemicolon, marks);
  }
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

/// One bit, twice, for each unplain unit of the block.
Bits unplainUnits(__m128i units) noexcept {
  const auto all = [](int unit) { return _mm_set1_epi16(static_cast<short>(unit)); };
  // With the highest bit turned around, signed comparisons give the order of units.
  const auto turned = [&](int unit) { return all(unit ^ 0x8000); };
  const __m128i ordered = _mm_xor_si128(units, all(0x8000));
  const __m128i outside = _mm_or_si128(_mm_cmplt_epi16(ordered, turned(u' ')),
                                       _mm_cmpgt_epi16(ordered, turned(kFirstUncertain - 1)));
  const __m128i signs = _mm_or_si128(
      _mm_or_si128(_mm_cmpeq_epi16(units, all(u',')), _mm_cmpeq_epi16(units, all(u';'))),
      _mm_or_si128(_mm_cmpeq_epi16(units, all(u'\\')), _mm_cmpeq_epi16(units, all(0x7F))));
  return static_cast<Bits>(_mm_movemask_epi8(_mm_or_si128(outside, signs)));
}

std::size_t findUnplain(TextView text, std::size_t begin) noexcept {
  for (; text.size() - begin >= kBlock; begin += kBlock) {
    const Bits found = unplainUnits(loadUnits(text.data() + begin));
    if (found != 0) {
      return begin + firstOf(found) / 2;
    }
  }
  if (text.size() < kBlock) {
    return findUnplainPlainly(text, begin);
  }
  // The last block once more, without the units that were looked at.
  const std::size_t last = text.size() - kBlock;
  const Bits found = unplainUnits(loadUnits(text.data() + last)) >> 2 * (begin - last);
  return found != 0 ? begin + firstOf(found) / 2 : text.size();
}

std::size_t findUnsingle(TextView text, std::size_t begin) noexcept {
  for (; text.size() - begin >= kLanes; begin += kLanes) {
    const Lanes lanes(text, begin);
    if (const Bits found = lanes.unsingle(); found != 0) {
      return findUnsinglePlainly(text, begin);
    }
  }
  return findUnsinglePlainly(text, begin);
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

char16_t united(TextView text) noexcept {
  return unitedPlainly(text);
}

std::size_t mostUtf8Bytes(TextView text) noexcept {
  return mostUtf8BytesPlainly(text);
}

std::size_t unitsSurelyWithin(TextView /*text*/, std::size_t /*begin*/,
                              std::size_t& /*bytes*/) noexcept {
  return 0;
}

std::size_t findUnplain(TextView text, std::size_t begin) noexcept {
  return findUnplainPlainly(text, begin);
}

std::size_t findUnsingle(TextView text, std::size_t begin) noexcept {
  return findUnsinglePlainly(text, begin);
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
