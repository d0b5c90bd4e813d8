#include "reader/repair_patterns.h"

#include "base/ascii.h"

#include <unicode/uchar.h>

namespace cardwright {

namespace {

constexpr std::size_t kNone = TextView::npos;

/// [A-Z0-9_-] without regard to case: two letters outside ASCII fold into it.
bool isNameUnit(char16_t unit) noexcept {
  if (isAscii(unit)) {
    return isAsciiLetter(unit) || isAsciiDigit(unit) || unit == u'_' || unit == u'-';
  }
  return unit == 0x017F || unit == 0x212A;
}

bool isPatternSpace(char16_t unit) noexcept {
  return isAscii(unit) ? unit == u' ' || (unit >= 0x09 && unit <= 0x0D)
                       : u_isUWhiteSpace(unit) != 0;
}

bool isHexDigit(char16_t unit) noexcept {
  return isAsciiDigit(unit) || (asciiUpper(unit) >= u'A' && asciiUpper(unit) <= u'F');
}

} // namespace

bool findNumericEntity(TextView text, std::size_t from, NumericEntity& entity) noexcept {
  for (;;) {
    const std::size_t begin = text.find(u"&#", from);
    if (begin == kNone) {
      return false;
    }
    std::size_t digits = begin + 2;
    const bool isHexadecimal =
        digits < text.size() && (text[digits] == u'x' || text[digits] == u'X');
    digits += isHexadecimal ? 1 : 0;
    std::size_t end = digits;
    while (end < text.size() && (isHexadecimal ? isHexDigit(text[end]) : isAsciiDigit(text[end]))) {
      ++end;
    }
    if (end > digits && end < text.size() && text[end] == u';') {
      entity = {begin, end + 1, text.substr(digits, end - digits), isHexadecimal};
      return true;
    }
    // What was passed over holds no "&".
    from = end;
  }
}

bool PropertyBoundaryFinder::next(PropertyBoundary& boundary) noexcept {
  if (m_from == 0) {
    if (const std::size_t end = endOfHeader(0); end != kNone) {
      boundary = {0, 0, end};
      m_from = end;
      return true;
    }
  }
  while (m_from < m_text.size()) {
    const std::size_t begin = m_text.find_first_of(u";\r\n", m_from);
    if (begin == kNone) {
      break;
    }
    std::size_t header = begin + 1;
    while (header < m_text.size() && isPatternSpace(m_text[header])) {
      ++header;
    }
    if (const std::size_t end = endOfHeader(header); end != kNone) {
      boundary = {begin, header, end};
      m_from = end;
      return true;
    }
    // Every start in the blanks leads to the same header.
    m_from = header;
  }
  m_from = m_text.size();
  return false;
}

std::size_t PropertyBoundaryFinder::endOfName(std::size_t begin) const noexcept {
  while (begin < m_text.size() && isNameUnit(m_text[begin])) {
    ++begin;
  }
  return begin;
}

std::size_t PropertyBoundaryFinder::endOfHeader(std::size_t begin) noexcept {
  std::size_t end = endOfName(begin);
  if (end > begin && end < m_text.size() && m_text[end] == u'.') {
    begin = end + 1;
    end = endOfName(begin);
  }
  if (end == begin || end >= m_text.size()) {
    return kNone;
  }
  if (m_text[end] == u':') {
    return end + 1;
  }
  if (m_text[end] != u';') {
    return kNone;
  }
  if (m_parametersEnd < end) {
    m_parametersEnd = std::min(m_text.find_first_of(u":\r\n", end), m_text.size());
  }
  const bool hasColon = m_parametersEnd < m_text.size() && m_text[m_parametersEnd] == u':';
  return hasColon ? m_parametersEnd + 1 : kNone;
}

} // namespace cardwright
