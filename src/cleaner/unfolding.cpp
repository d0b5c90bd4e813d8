#include "cleaner/unfolding.h"

#include "base/ascii.h"
#include "base/scan_lanes.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/characters.h"
#include "cleaner/line_predicates.h"

#include <algorithm>

namespace cardwright {

bool GrowingHeader::declaresQuotedPrintable(TextView line) {
  for (; !m_hasColon && m_next < line.size(); ++m_next) {
    const char16_t unit = line[m_next];
    if ((unit != u'"' && unit != u':') || !standsAlone(line, m_next)) {
      continue;
    }
    if (unit == u'"') {
      m_inQuotes = !m_inQuotes;
    } else if (!m_inQuotes) {
      m_hasColon = true;
      m_isQuotedPrintable =
          m_isQuotedPrintable || ::cardwright::declaresQuotedPrintable(line.substr(0, m_next));
      break;
    }
  }
  return m_hasColon && m_isQuotedPrintable;
}

void GrowingHeader::seamAt(std::size_t position, TextView line) {
  if (m_hasColon && position == m_next + 1 && !standsAlone(line, m_next)) {
    m_hasColon = false;
    ++m_next;
  }
}

Unfolder::PhysicalLine Unfolder::physicalLineAt(std::size_t begin) const noexcept {
  PhysicalLine line;
  line.begin = begin;
  line.end = endOfLine(m_text, begin);
  const bool isCrLf =
      line.end + 1 < m_text.size() && m_text[line.end] == u'\r' && m_text[line.end + 1] == u'\n';
  line.next = std::min(line.end + (isCrLf ? 2 : 1), m_text.size());
  return line;
}

bool Unfolder::isContinuation(const PhysicalLine& line) const {
  return line.end > line.begin && isSpaceOrTab(m_text[line.begin]) &&
         standsAlone(m_text.substr(line.begin, line.end - line.begin), 0);
}

bool Unfolder::hasContentFrom(std::size_t begin) {
  if (m_hasContentAt && m_contentAt >= begin) {
    return true;
  }
  m_hasContentAt = false;
  for (m_contentAt = std::max(m_contentAt, begin); m_contentAt < m_text.size();) {
    const PhysicalLine line = physicalLineAt(m_contentAt);
    if (line.end - line.begin > (isContinuation(line) ? 1U : 0U)) {
      m_hasContentAt = true;
      return true;
    }
    m_contentAt = line.next;
  }
  return false;
}

bool Unfolder::next(UnfoldedLine& line, Text& buffer) {
  if (m_location >= m_text.size()) {
    return false;
  }
  PhysicalLine physical = physicalLineAt(m_location);
  std::size_t contentBegin = physical.begin;
  if (m_location == 0 && isContinuation(physical)) {
    ++contentBegin;
  }
  line.begin = physical.begin;
  line.end = physical.end;
  line.text = m_text.substr(contentBegin, physical.end - contentBegin);
  line.isJoined = false;
  m_location = physical.next;

  GrowingHeader header;
  bool isSettled = false; ///< whether the line is known to end in no soft break
  while (m_location < m_text.size()) {
    physical = physicalLineAt(m_location);
    if (!isContinuation(physical)) {
      break;
    }
    m_location = physical.next;
    line.end = physical.end;
    if (!line.isJoined) {
      buffer.assign(line.text);
      line.isJoined = true;
    }
    if (!isSettled && VCardCleaner::lineHasQuotedPrintableSoftBreak(buffer) &&
        header.declaresQuotedPrintable(buffer)) {
      buffer.resize(VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(buffer).size());
      isSettled = false;
    } else {
      isSettled = true;
    }
    const std::size_t seam = buffer.size();
    const TextView piece = m_text.substr(physical.begin + 1, physical.end - physical.begin - 1);
    // Blanks change nothing: the line need not be searched for its end over and over.
    isSettled = isSettled && piece.find_first_not_of(u" \t") == TextView::npos;
    buffer.append(piece);
    header.seamAt(seam, buffer);
    line.text = buffer;
  }
  return !line.text.empty() || hasContentFrom(m_location);
}

TextList VCardCleaner::unfoldLines(TextView text) {
  TextList lines;
  Unfolder unfolder(text);
  UnfoldedLine line;
  Text buffer;
  while (unfolder.next(line, buffer)) {
    lines.emplace_back(line.text);
  }
  return lines;
}

} // namespace cardwright
