#include "cleaner/extended_headers.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/graphemes.h"
#include "cleaner/characters.h"
#include "cleaner/line_predicates.h"
#include "cleaner/matching/header_scanner.h"

#include <unicode/uchar.h>

namespace cardwright {

namespace {

bool isNameCharacter(TextView text, std::size_t begin, std::size_t end) noexcept {
  const auto codePoint = static_cast<UChar32>(codePointAt(text, begin));
  if (codePoint < 0x80) {
    const auto unit = static_cast<char16_t>(codePoint);
    return isAsciiUpper(unit) || isAsciiDigit(unit) || (unit == u'-' && end - begin == 1);
  }
  return u_isUUppercase(codePoint) != 0 ||
         u_getIntPropertyValue(codePoint, UCHAR_NUMERIC_TYPE) != U_NT_NONE;
}

bool isItsOwnUpperCase(TextView text) {
  for (const char16_t unit : text) {
    if (!isAscii(unit) || isAsciiLower(unit)) {
      return upperCased(text) == text;
    }
  }
  return true;
}

/// Tells where extended headers begin. Names that overlap end at the same place, so that a run of
/// "X-X-X-" is walked once for all of them.
class ExtendedHeaderTest {
 public:
  explicit ExtendedHeaderTest(TextView text) noexcept : m_text(text) {}

  /// @param position where "X-" or "VND-" stands; never less than in the last call
  bool isHeader(std::size_t position, std::size_t prefixLength) {
    if (position + prefixLength > m_runEnd) {
      walkRun(position, position + prefixLength);
    }
    return m_endsInColon && (m_lastNotUpper == kNone || position > m_lastNotUpper);
  }

 private:
  static constexpr std::size_t kNone = TextView::npos;

  void walkRun(std::size_t position, std::size_t begin) {
    std::size_t at = begin;
    while (at < m_text.size()) {
      const std::size_t end = endOfCharacter(m_text, at);
      if (!isNameCharacter(m_text, at, end)) {
        break;
      }
      at = end;
    }
    m_runEnd = at;
    m_endsInColon = at < m_text.size() && m_text[at] == u':' && standsAlone(m_text, at);
    m_lastNotUpper = kNone;
    for (std::size_t i = position; i < at;) {
      const std::size_t length = unitLength(codePointAt(m_text, i));
      if (!isItsOwnUpperCase(m_text.substr(i, length))) {
        m_lastNotUpper = i;
      }
      i += length;
    }
  }

  TextView m_text;
  std::size_t m_runEnd = 0;
  bool m_endsInColon = false;
  std::size_t m_lastNotUpper = kNone; ///< last unit of the run that upper-casing would change
};

} // namespace

bool cutAtExtendedHeaders(TextView property, std::vector<TextView>& pieces) {
  const auto keep = [&pieces](TextView piece) {
    pieces.push_back(piece);
    return headerAtStart(piece, HeaderNames::anyUpper).has_value();
  };
  const std::size_t colon = firstUnquotedColon(property);
  std::size_t begin = 0;
  ExtendedHeaderTest test(property);
  for (std::size_t at = property.find_first_of(u"XV", colon + 1);
       colon != kNoColon && at != TextView::npos; at = property.find_first_of(u"XV", at + 1)) {
    const TextView rest = property.substr(at);
    const std::size_t prefixLength = rest.starts_with(u"X-")     ? 2
                                     : rest.starts_with(u"VND-") ? 4
                                                                 : 0;
    if (prefixLength != 0 && test.isHeader(at, prefixLength)) {
      if (!keep(property.substr(begin, at - begin))) {
        return false;
      }
      begin = at;
    }
  }
  return keep(property.substr(begin));
}

} // namespace cardwright
