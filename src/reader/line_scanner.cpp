#include "reader/line_scanner.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/line_counter.h"
#include "cardwright/text_scanner.h"
#include "cardwright/vcard_utils.h"
#include "reader/address_book_server.h"

#include <algorithm>

namespace cardwright {

namespace {

/// Whether a header asks for quoted-printable; the bare form of version 2.1 does not count.
bool declaresQuotedPrintable(TextView header) {
  constexpr TextView kQuotedPrintable = u"encoding=quoted-printable";
  // Most that do end so.
  return endsWithAsciiIgnoringCase(header, kQuotedPrintable) ||
         findIgnoringCase(header, kQuotedPrintable).has_value();
}

/// Whether "=" is the last thing on a line, blanks aside.
bool endsInEqualsSign(TextView segment) noexcept {
  std::size_t end = segment.size();
  while (end > 0 && isSpaceOrTab(segment[end - 1])) {
    --end;
  }
  return end > 0 && segment[end - 1] == u'=';
}

/// Finds out whether a growing line is quoted-printable, looking at no unit twice.
class HeaderExamination {
 public:
  /// @param line the whole line so far
  bool isQuotedPrintable(TextView line) {
    for (; m_state == State::unknown && m_next < line.size(); ++m_next) {
      m_next = findEither(line, m_next, '"', ':');
      if (m_next == line.size()) {
        break;
      }
      if (line[m_next] == u'"') {
        m_inQuotes = !m_inQuotes;
      } else if (!m_inQuotes) {
        m_state =
            declaresQuotedPrintable(line.substr(0, m_next)) ? State::quotedPrintable : State::other;
      }
    }
    return m_state == State::quotedPrintable;
  }

 private:
  enum class State { unknown, quotedPrintable, other };

  std::size_t m_next = 0;
  bool m_inQuotes = false;
  State m_state = State::unknown;
};

/// A line that is a view until a second segment joins it: then it grows in a buffer or, where it
/// may, over what it consists of.
class GrowingLine {
 public:
  /// @param buffer null where lines are joined in place
  explicit GrowingLine(Text* buffer) noexcept : m_buffer(buffer) {}

  /// @returns the segment where it is now
  TextView append(TextView segment) {
    if (m_view.empty()) {
      m_view = segment;
    } else if (m_buffer != nullptr) {
      if (!m_isJoined) {
        m_buffer->assign(m_view);
      }
      m_buffer->append(segment);
      m_view = *m_buffer;
      m_isJoined = true;
    } else {
      auto* const end = const_cast<char16_t*>(m_view.data() + m_view.size()); // NOLINT: ours
      Text::traits_type::move(end, segment.data(), segment.size());
      m_view = {m_view.data(), m_view.size() + segment.size()};
      m_isJoined = true;
    }
    return m_view.substr(m_view.size() - segment.size());
  }

  /// Removes the blanks and the "=" that the line ends in.
  void trimSoftBreak() {
    while (isSpaceOrTab(m_view.back())) {
      m_view.remove_suffix(1);
    }
    m_view.remove_suffix(1);
    if (m_isJoined && m_buffer != nullptr) {
      m_buffer->resize(m_view.size());
    }
  }

  /// Fills what a line that was joined in place leaves free up to where its last segment ended.
  void fillRest(const char16_t* end, std::size_t lineBreaks) const noexcept {
    auto* const rest = const_cast<char16_t*>(m_view.data() + m_view.size()); // NOLINT: ours
    auto* const breaks = const_cast<char16_t*>(end) - lineBreaks;            // NOLINT: ours
    std::fill(rest, breaks, u' ');
    std::fill(breaks, breaks + lineBreaks, u'\n');
  }

  [[nodiscard]] TextView view() const noexcept { return m_view; }
  [[nodiscard]] bool isJoined() const noexcept { return m_isJoined; }

 private:
  Text* m_buffer;
  TextView m_view;
  bool m_isJoined = false;
};

} // namespace

ValueMarks LineScanner::scanSegment() noexcept {
  const ValueMarks marks = marksOfValue(m_text, m_location);
  m_location = marks.end;
  return marks;
}

void LineScanner::skipLineTerminators() noexcept {
  while (m_location < m_text.size() && isLineTerminator(m_text[m_location])) {
    ++m_location;
  }
}

bool LineScanner::stepOver(std::size_t end) noexcept {
  const std::size_t begin = m_location;
  m_location = end;
  skipLineTerminators();
  if (m_location < m_text.size() && isSpaceOrTab(m_text[m_location])) {
    m_location = begin;
    return false;
  }
  return true;
}

bool LineScanner::next(LogicalLine& result) {
  if (m_location >= m_text.size()) {
    return false;
  }
  result.begin = m_location;
  result.hasAmpersand = false;
  GrowingLine line(m_isInPlace ? nullptr : &m_buffer);
  HeaderExamination header;
  std::size_t segmentsEnd = m_location;
  std::size_t lineBreaks = 0;
  for (;;) {
    const std::size_t gapEnd = m_location;
    const ValueMarks marks = scanSegment();
    TextView segment = m_text.substr(gapEnd, marks.end - gapEnd);
    if (segment.empty()) {
      break;
    }
    result.hasAmpersand = result.hasAmpersand || marks.hasAmpersand;
    if (m_isInPlace && gapEnd != segmentsEnd) {
      lineBreaks += lineBreaksIn(m_text.substr(segmentsEnd, gapEnd - segmentsEnd));
    }
    segmentsEnd = m_location;
    segment = line.append(segment);
    const bool hasSoftBreak = endsInEqualsSign(segment) && header.isQuotedPrintable(line.view());
    skipLineTerminators();
    if (m_location < m_text.size() && isSpaceOrTab(m_text[m_location])) {
      ++m_location;
      // A line without a colon is none of an address-book server, so whatever is ahead.
      const auto start = marks.hasColon ? addressBookServerPropertyAhead(m_text, m_location)
                                        : std::optional<std::size_t>();
      if (start && isAddressBookServerLine(segment)) {
        // Wrongly indented: a property of its own.
        m_location = *start;
        break;
      }
      if (hasSoftBreak) {
        line.trimSoftBreak();
      }
      skipLineTerminators();
      continue;
    }
    if (!hasSoftBreak) {
      break;
    }
    line.trimSoftBreak();
    TextScanner ahead(m_text);
    if (VCardUtils::nextLineIsVCardBoundaryAtLocation(ahead, m_location,
                                                      VCardUtils::lineTerminatorCharacterSet()) ||
        VCardUtils::nextLineLooksLikeRecoverableStandalonePropertyAtLocation(
            ahead, m_location, VCardUtils::lineTerminatorCharacterSet(),
            VCardUtils::headerWhitespaceCharacterSet())) {
      break;
    }
  }
  if (m_isInPlace && line.isJoined()) {
    line.fillRest(m_text.data() + segmentsEnd, lineBreaks);
  }
  result.text = line.view();
  result.isJoined = line.isJoined();
  return !result.text.empty();
}

bool TextScanner::scanFoldedLineIntoString(Text* line) {
  LineScanner scanner(m_text, m_location);
  LogicalLine logical{};
  const bool found = scanner.next(logical);
  m_location = scanner.location();
  if (found && line != nullptr) {
    line->assign(logical.text);
  }
  return found;
}

} // namespace cardwright
