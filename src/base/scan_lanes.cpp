#include "base/scan_lanes.h"

#include "base/ascii.h"

#include <bit>
#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace cardwright {

namespace {

constexpr bool beginsPrefix(char16_t unit) noexcept {
  return asciiLower(unit) == u'x' || asciiLower(unit) == u'd';
}

void mark(TextView text, std::size_t at, std::size_t begin, LineMarks& marks,
          bool& hasColon) noexcept {
  switch (text[at]) {
  case u':':
    marks.hasFurtherColon = marks.hasFurtherColon || hasColon;
    marks.colon = hasColon ? marks.colon : at;
    hasColon = true;
    break;
  case u'&':
    marks.hasAmpersand = true;
    break;
  case u'-':
    marks.hasPrefixHyphen = marks.hasPrefixHyphen || (at > begin && beginsPrefix(text[at - 1]));
    break;
  default:
    break;
  }
}

LineMarks finishPlainly(TextView text, std::size_t at, std::size_t begin, LineMarks marks,
                        bool hasColon) noexcept {
  for (; at < text.size() && !isLineTerminator(text[at]); ++at) {
    mark(text, at, begin, marks, hasColon);
  }
  marks.end = at;
  marks.colon = hasColon ? marks.colon : at;
  return marks;
}

#if defined(__SSE2__)

constexpr std::size_t kLanes = 16;

/// Sixteen units as bytes. Units beyond a byte become 0xFF or 0, which are no signs of the syntax.
class Lanes {
 public:
  Lanes(TextView text, std::size_t at) noexcept
      : m_units(_mm_packus_epi16(load(text.data() + at), load(text.data() + at + kLanes / 2))) {}

  /// One bit for each lane that holds the sign.
  [[nodiscard]] unsigned equal(char sign) const noexcept {
    return bits(_mm_cmpeq_epi8(m_units, _mm_set1_epi8(sign)));
  }
  [[nodiscard]] unsigned lineTerminators() const noexcept {
    return bits(_mm_or_si128(_mm_cmpeq_epi8(m_units, _mm_set1_epi8('\r')),
                             _mm_cmpeq_epi8(m_units, _mm_set1_epi8('\n'))));
  }
  [[nodiscard]] unsigned prefixLetters() const noexcept {
    const __m128i lower = _mm_or_si128(m_units, _mm_set1_epi8(0x20));
    return bits(_mm_or_si128(_mm_cmpeq_epi8(lower, _mm_set1_epi8('x')),
                             _mm_cmpeq_epi8(lower, _mm_set1_epi8('d'))));
  }

 private:
  static __m128i load(const char16_t* units) noexcept {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(units)); // NOLINT: unaligned by design
  }
  static unsigned bits(__m128i lanes) noexcept {
    return static_cast<unsigned>(_mm_movemask_epi8(lanes));
  }

  __m128i m_units;
};

std::size_t firstOf(unsigned bits) noexcept {
  return static_cast<std::size_t>(std::countr_zero(bits));
}

#endif

} // namespace

LineMarks marksOfLinePlainly(TextView text, std::size_t begin) noexcept {
  return finishPlainly(text, begin, begin, {}, false);
}

std::size_t endOfLinePlainly(TextView text, std::size_t begin) noexcept {
  while (begin < text.size() && !isLineTerminator(text[begin])) {
    ++begin;
  }
  return begin;
}

#if defined(__SSE2__)

LineMarks marksOfLine(TextView text, std::size_t begin) noexcept {
  LineMarks marks;
  bool hasColon = false;
  unsigned ampersands = 0;
  unsigned prefixes = 0;
  unsigned carried = 0; // whether the last lane of the block before holds a prefix letter
  std::size_t at = begin;
  bool isAtEnd = false;
  for (; !isAtEnd && text.size() - at >= kLanes; at += isAtEnd ? 0 : kLanes) {
    const Lanes lanes(text, at);
    const unsigned terminators = lanes.lineTerminators();
    const unsigned inLine = terminators == 0 ? 0xFFFFU : (terminators & (0U - terminators)) - 1U;
    if (unsigned colons = lanes.equal(':') & inLine; colons != 0) {
      if (!hasColon) {
        marks.colon = at + firstOf(colons);
        colons &= colons - 1U;
        hasColon = true;
      }
      marks.hasFurtherColon = marks.hasFurtherColon || colons != 0;
    }
    ampersands |= lanes.equal('&') & inLine;
    const unsigned letters = lanes.prefixLetters();
    prefixes |= lanes.equal('-') & inLine & ((letters << 1U) | carried);
    carried = letters >> (kLanes - 1);
    if (terminators != 0) {
      marks.end = at + firstOf(terminators);
      isAtEnd = true;
    }
  }
  marks.hasAmpersand = ampersands != 0;
  marks.hasPrefixHyphen = prefixes != 0;
  if (!isAtEnd) {
    return finishPlainly(text, at, begin, marks, hasColon);
  }
  marks.colon = hasColon ? marks.colon : marks.end;
  return marks;
}

std::size_t endOfLine(TextView text, std::size_t begin) noexcept {
  for (; text.size() - begin >= kLanes; begin += kLanes) {
    if (const unsigned terminators = Lanes(text, begin).lineTerminators(); terminators != 0) {
      return begin + firstOf(terminators);
    }
  }
  return endOfLinePlainly(text, begin);
}

std::size_t findDoubleCr(TextView text) noexcept {
  // Line ends are far apart, so a block that holds any is looked at plainly.
  std::size_t at = 0;
  for (; text.size() - at > kLanes; at += kLanes) {
    unsigned crs = Lanes(text, at).equal('\r');
    for (; crs != 0; crs &= crs - 1U) {
      const std::size_t cr = at + firstOf(crs);
      if (text[cr + 1] == u'\r') {
        return cr;
      }
    }
  }
  return text.find(u"\r\r", at);
}

#else

LineMarks marksOfLine(TextView text, std::size_t begin) noexcept {
  return marksOfLinePlainly(text, begin);
}

std::size_t endOfLine(TextView text, std::size_t begin) noexcept {
  return endOfLinePlainly(text, begin);
}

std::size_t findDoubleCr(TextView text) noexcept {
  return text.find(u"\r\r");
}

#endif

} // namespace cardwright
