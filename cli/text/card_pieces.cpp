#include "text/card_pieces.h"

#include <algorithm>

namespace cardwright::tool {

namespace {

constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kBlanksAndLineEnds = " \t\r\n";

constexpr std::string_view kEndOfCard = "END:VCARD";

std::string_view withoutBlanksAtEnd(std::string_view line) {
  const std::size_t last = line.find_last_not_of(kBlanks);
  return line.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

/// Whether a line may still become one that ends a card.
bool beginsEndOfCard(std::string_view line) {
  line = withoutBlanksAtEnd(line);
  return line.size() <= kEndOfCard.size() &&
         std::equal(line.begin(), line.end(), kEndOfCard.begin(),
                    [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 'a' + 'A' : a) == b; });
}

std::size_t endOr(std::size_t found, std::string_view text) {
  return std::min(found, text.size());
}

} // namespace

bool CardPieces::isBlankAhead() const {
  return m_at < m_text.size() && kBlanks.find(m_text[m_at]) != std::string_view::npos;
}

std::string_view CardPieces::takeSegment() {
  const std::size_t begin = m_at;
  const std::size_t end = endOr(m_text.find_first_of(kLineEnds, begin), m_text);
  m_at = endOr(m_text.find_first_not_of(kLineEnds, end), m_text);
  return m_text.substr(begin, end - begin);
}

bool CardPieces::passLine(std::size_t& end) {
  const auto endOf = [this](std::string_view segment) {
    return static_cast<std::size_t>(segment.data() - m_text.data()) +
           withoutBlanksAtEnd(segment).size();
  };
  const std::string_view first = takeSegment();
  end = endOf(first);
  bool mayEnd = beginsEndOfCard(first);
  std::string line(mayEnd ? first : "");
  // Like the reader, which passes over line ends behind the blank that continues a line.
  while (isBlankAhead()) {
    ++m_at;
    m_at = endOr(m_text.find_first_not_of(kLineEnds, m_at), m_text);
    const std::string_view segment = takeSegment();
    mayEnd = mayEnd && beginsEndOfCard(line.append(segment));
    end = mayEnd && !withoutBlanksAtEnd(segment).empty() ? endOf(segment) : end;
  }
  return mayEnd && withoutBlanksAtEnd(line).size() == kEndOfCard.size();
}

bool CardPieces::next(std::string_view& piece) {
  m_at = endOr(m_text.find_first_not_of(kBlanksAndLineEnds, m_at), m_text);
  const std::size_t begin = m_at;
  std::size_t end = begin;
  m_endsCard = false;
  while (!m_endsCard && m_at < m_text.size()) {
    m_endsCard = passLine(end);
  }
  if (!m_endsCard && begin < m_text.size()) {
    end = m_text.find_last_not_of(kLineEnds) + 1;
  }
  piece = m_text.substr(begin, end - begin);
  return !piece.empty();
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
