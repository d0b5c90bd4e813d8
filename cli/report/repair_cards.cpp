#include "report/repair_cards.h"

#include <algorithm>

namespace cardwright::tool {

namespace {

bool isBlank(char16_t unit) {
  return unit == u' ' || unit == u'\t';
}

/// @param boundary in lower case
bool isBoundary(TextView line, TextView boundary) {
  while (!line.empty() && isBlank(line.front())) {
    line.remove_prefix(1);
  }
  while (!line.empty() && isBlank(line.back())) {
    line.remove_suffix(1);
  }
  const auto isSame = [](char16_t unit, char16_t lower) {
    return lower == (unit >= u'A' && unit <= u'Z' ? unit + (u'a' - u'A') : unit);
  };
  return std::equal(line.begin(), line.end(), boundary.begin(), boundary.end(), isSame);
}

/// Counts the cards of a text line by line, like the reader: a card that begins in another one is
/// no card of its own.
class CardCounter {
 public:
  explicit CardCounter(TextView text) : m_text(text) {}

  /// @param offset not before that of the last call
  /// @returns the number of the card that begins at this offset or last before it
  std::size_t cardAt(std::size_t offset) {
    while (m_begin < m_text.size() && m_begin <= offset) {
      takeLine();
    }
    return std::max<std::size_t>(m_cards, 1);
  }

 private:
  void takeLine() {
    const std::size_t end = std::min(m_text.find_first_of(u"\r\n", m_begin), m_text.size());
    const TextView line = m_text.substr(m_begin, end - m_begin);
    if (!m_isInCard && isBoundary(line, u"begin:vcard")) {
      m_isInCard = true;
      ++m_cards;
    } else if (isBoundary(line, u"end:vcard")) {
      m_isInCard = false;
    }
    m_begin = end + 1;
  }

  TextView m_text;
  std::size_t m_begin = 0; ///< of the next line
  std::size_t m_cards = 0;
  bool m_isInCard = false;
};

} // namespace

std::vector<std::size_t> cardsOfRepairs(std::string_view bytes, std::string_view encoding,
                                        const std::vector<CleaningRepair>& repairs) {
  std::vector<std::size_t> cards;
  if (repairs.empty()) {
    return cards;
  }
  const Text text = decodeFile(bytes, encoding).value_or(Text());
  CardCounter counter(text);
  cards.reserve(repairs.size());
  for (const CleaningRepair& repair : repairs) {
    cards.push_back(counter.cardAt(repair.place.offset));
  }
  return cards;
}

std::size_t distinctCards(const std::vector<std::size_t>& cards) {
  std::size_t distinct = 0;
  for (std::size_t i = 0; i < cards.size(); ++i) {
    distinct += i == 0 || cards[i] != cards[i - 1] ? 1 : 0;
  }
  return distinct;
}

} // namespace cardwright::tool
