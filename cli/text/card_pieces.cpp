#include "text/card_pieces.h"

#include <algorithm>

namespace cardwright::tool {

namespace {

constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kBlanksAndLineEnds = " \t\r\n";

bool isEndLine(std::string_view line) {
  constexpr std::string_view kEnd = "END:VCARD";
  const std::size_t last = line.find_last_not_of(kBlanks);
  line = line.substr(0, last == std::string_view::npos ? 0 : last + 1);
  return std::equal(line.begin(), line.end(), kEnd.begin(), kEnd.end(),
                    [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 'a' + 'A' : a) == b; });
}

std::size_t endOr(std::size_t found, std::string_view text) {
  return std::min(found, text.size());
}

} // namespace

bool CardPieces::next(std::string_view& piece) {
  const std::size_t begin = endOr(m_text.find_first_not_of(kBlanksAndLineEnds, m_at), m_text);
  m_at = begin;
  while (m_at < m_text.size()) {
    const std::size_t line = m_at;
    const std::size_t end = endOr(m_text.find_first_of(kLineEnds, line), m_text);
    m_at = endOr(m_text.find_first_not_of(kLineEnds, end), m_text);
    // A line that goes on behind blanks is another one.
    const bool goesOn =
        m_at < m_text.size() && kBlanks.find(m_text[m_at]) != std::string_view::npos;
    if (!goesOn && isEndLine(m_text.substr(line, end - line))) {
      piece = m_text.substr(begin, end - begin);
      return true;
    }
  }
  const std::size_t last = m_text.find_last_not_of(kLineEnds);
  piece = m_text.substr(begin, begin < m_text.size() ? last + 1 - begin : 0);
  return !piece.empty();
}

bool endsCard(std::string_view piece) {
  const std::size_t before = piece.find_last_of(kLineEnds);
  return isEndLine(piece.substr(before == std::string_view::npos ? 0 : before + 1));
}

std::string withAlikeLineEnds(std::string_view text) {
  std::string alike;
  alike.reserve(text.size() + text.size() / 32 + 2);
  while (!text.empty()) {
    const std::size_t end = endOr(text.find_first_of(kLineEnds), text);
    alike.append(text.substr(0, end)).append("\r\n");
    text.remove_prefix(end);
    const std::size_t behind = endOr(text.find_first_not_of('\r'), text);
    if (behind < text.size() && text[behind] == '\n') {
      text.remove_prefix(behind + 1);
    } else {
      text.remove_prefix(std::min<std::size_t>(text.size(), 1));
    }
  }
  return alike;
}

} // namespace cardwright::tool
