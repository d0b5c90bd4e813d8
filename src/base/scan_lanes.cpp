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

/// Goes on with a line of which the part before `at` was looked at.
class PlainLook {
 public:
  PlainLook(TextView text, std::size_t begin, LineMarks& marks, bool hasColon, bool hasSemicolon)
      : m_text(text),
        m_begin(begin),
        m_marks(marks),
        m_hasColon(hasColon),
        m_hasSemicolon(hasSemicolon) {}

  void goOnFrom(std::size_t at) noexcept {
    for (; at < m_text.size() && !isLineTerminator(m_text[at]); ++at) {
      if (!m_hasColon) {
        lookInHeader(at);
      }
      look(at);
    }
    finish(at);
  }

  void finish(std::size_t end) noexcept {
    m_marks.end = end;
    m_marks.colon = m_hasColon ? m_marks.colon : end;
    m_marks.nameEnd = m_hasSemicolon ? m_marks.nameEnd : m_marks.colon;
  }

 private:
  void lookInHeader(std::size_t at) noexcept {
    const char16_t unit = m_text[at];
    m_marks.hasDotInHeader = m_marks.hasDotInHeader || unit == u'.';
    m_marks.hasOddHeader =
        m_marks.hasOddHeader || unit == u'"' || unit == u'\\' || unit == u'\0' || !isAscii(unit);
    if (unit == u';' && !m_hasSemicolon) {
      m_marks.nameEnd = at;
      m_hasSemicolon = true;
    }
  }

  void look(std::size_t at) noexcept {
    const char16_t unit = m_text[at];
    if (unit == u':') {
      m_marks.hasFurtherColon = m_marks.hasFurtherColon || m_hasColon;
      m_marks.colon = m_hasColon ? m_marks.colon : at;
      m_hasColon = true;
    } else if (unit == u'&') {
      m_marks.hasAmpersand = true;
    } else if (unit == u'-' && at > m_begin && beginsPrefix(m_text[at - 1])) {
      m_marks.hasPrefixHyphen = true;
    }
  }

  TextView m_text;
  std::size_t m_begin;
  LineMarks& m_marks;
  bool m_hasColon;
  bool m_hasSemicolon;
};

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
  [[nodiscard]] unsigned oddInHeader() const noexcept {
    // The highest bit of a lane says by itself that the unit is not ASCII.
    const __m128i odd = _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi8(m_units, _mm_set1_epi8('"')),
                                                  _mm_cmpeq_epi8(m_units, _mm_set1_epi8('\\'))),
                                     _mm_cmpeq_epi8(m_units, _mm_setzero_si128()));
    return bits(_mm_or_si128(odd, m_units));
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

/// The bits below the lowest one that is set; all of them when none is.
unsigned bitsBelowLowest(unsigned bits) noexcept {
  return bits == 0 ? 0xFFFFU : (bits & (0U - bits)) - 1U;
}

std::size_t firstOf(unsigned bits) noexcept {
  return static_cast<std::size_t>(std::countr_zero(bits));
}

#endif

} // namespace

LineMarks marksOfLinePlainly(TextView text, std::size_t begin) noexcept {
  LineMarks marks;
  PlainLook(text, begin, marks, false, false).goOnFrom(begin);
  return marks;
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
  bool hasSemicolon = false;
  unsigned ampersands = 0;
  unsigned prefixes = 0;
  unsigned carried = 0; // whether the last lane of the block before holds a prefix letter
  unsigned terminators = 0;
  std::size_t at = begin;
  while (text.size() - at >= kLanes) {
    const Lanes lanes(text, at);
    terminators = lanes.lineTerminators();
    const unsigned inLine = bitsBelowLowest(terminators);
    unsigned colons = lanes.equal(':') & inLine;
    if (!hasColon) {
      const unsigned inHeader = inLine & bitsBelowLowest(colons);
      const unsigned semicolons = lanes.equal(';') & inHeader;
      if (!hasSemicolon && semicolons != 0) {
        marks.nameEnd = at + firstOf(semicolons);
        hasSemicolon = true;
      }
      marks.hasDotInHeader = marks.hasDotInHeader || (lanes.equal('.') & inHeader) != 0;
      marks.hasOddHeader = marks.hasOddHeader || (lanes.oddInHeader() & inHeader) != 0;
      if (colons != 0) {
        marks.colon = at + firstOf(colons);
        colons &= colons - 1U;
        hasColon = true;
      }
    }
    marks.hasFurtherColon = marks.hasFurtherColon || colons != 0;
    ampersands |= lanes.equal('&') & inLine;
    const unsigned letters = lanes.prefixLetters();
    prefixes |= lanes.equal('-') & inLine & ((letters << 1U) | carried);
    carried = letters >> (kLanes - 1);
    if (terminators != 0) {
      break;
    }
    at += kLanes;
  }
  marks.hasAmpersand = ampersands != 0;
  marks.hasPrefixHyphen = prefixes != 0;
  PlainLook look(text, begin, marks, hasColon, hasSemicolon);
  if (terminators != 0) {
    look.finish(at + firstOf(terminators));
  } else {
    look.goOnFrom(at);
  }
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
