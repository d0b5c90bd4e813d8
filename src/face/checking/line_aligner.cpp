#include "face/checking/line_aligner.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/whitespace.h"

#include <algorithm>

namespace cardwright {

namespace {

std::size_t endOfBlanks(TextView text, std::size_t at) noexcept {
  while (at < text.size() && isSpaceOrTab(text[at])) {
    ++at;
  }
  return at;
}

std::size_t endOfLineBreaks(TextView text, std::size_t at) noexcept {
  while (at < text.size() && isLineTerminator(text[at])) {
    ++at;
  }
  return at;
}

/// The end of the numeric reference at a place; the place itself where there is none.
std::size_t endOfReference(TextView text, std::size_t at) noexcept {
  constexpr std::size_t kLongest = 16;
  if (!text.substr(at).starts_with(u"&#")) {
    return at;
  }
  const std::size_t length = text.substr(at, kLongest).find(u';');
  return length == TextView::npos ? at : at + length + 1;
}

} // namespace

void LineAligner::setLine(TextView line) noexcept {
  m_line = line;
  m_position = 0;
  m_isQuotedPrintable =
      findIgnoringCase(line.substr(0, line.find(u':')), u"encoding=quoted-printable").has_value();
}

std::size_t LineAligner::placeOf(std::size_t position) {
  const std::size_t wanted = std::min(position, m_line.size());
  while (!m_isLost && m_position < wanted) {
    step();
  }
  // Behind the last unit there is nothing to be found: that is where the text stands now.
  if (!m_isLost && wanted < m_line.size()) {
    m_isLost = !find();
  }
  return m_isLost ? m_begin : m_at;
}

void LineAligner::step() {
  if (!find()) {
    m_isLost = true;
    return;
  }
  const std::size_t end = endOfReference(m_text, m_at);
  if (end == m_at || m_line[m_position] == u'&') {
    ++m_at;
    ++m_position;
    return;
  }
  // A line break is escaped, all others are what they stand for.
  const bool isEscape = m_line[m_position] == u'\\';
  const bool isReturn = m_text.substr(m_at, end - m_at) == u"&#13;";
  m_at = isEscape && isReturn && m_text.substr(end).starts_with(u"&#10;") ? end + 5 : end;
  m_position += isEscape || (m_line[m_position] & 0xFC00U) == 0xD800 ? 2 : 1;
}

bool LineAligner::find() {
  while (m_at < m_text.size()) {
    if (passFold()) {
      continue;
    }
    if (isLineTerminator(m_text[m_at])) {
      return false;
    }
    if (m_position >= m_line.size() || m_text[m_at] == m_line[m_position] ||
        endOfReference(m_text, m_at) != m_at) {
      return m_position < m_line.size();
    }
    ++m_at;
  }
  return false;
}

bool LineAligner::passFold() {
  const bool mayBeSoft =
      m_text[m_at] == u'=' &&
      (m_isQuotedPrintable || m_position >= m_line.size() || m_line[m_position] != u'=');
  const std::size_t lineEnd = mayBeSoft ? endOfBlanks(m_text, m_at + 1) : m_at;
  const std::size_t next = endOfLineBreaks(m_text, lineEnd);
  if (next == lineEnd) {
    return false;
  }
  const bool isFolded = next < m_text.size() && isSpaceOrTab(m_text[next]);
  if (!isFolded && !mayBeSoft) {
    return false;
  }
  m_at = isFolded ? next + 1 : next;
  return true;
}

} // namespace cardwright
