#include "face/checking/card_lines.h"

#include "base/case.h"
#include "base/whitespace.h"
#include "cardwright/date_formatter.h"
#include "cardwright/vocabulary.h"
#include "reader/content_line.h"
#include "reader/line_scanner.h"
#include "reader/merged_lines.h"
#include "reader/numeric_entities.h"

#include <algorithm>

namespace cardwright {

namespace {

class Walk {
 public:
  explicit Walk(CheckedCards& result) : m_formatter("en_US_POSIX"), m_result(result) {}

  /// Walks one card; no card is begun where there is none.
  void walkCard(TextView text, std::size_t& location) {
    while (location < text.size() && isWhitespaceOrNewline(text[location])) {
      ++location;
    }
    m_isOpen = false;
    bool isFinished = false;
    LineScanner lines(text, location);
    LogicalLine line{};
    std::vector<TextView> candidates;
    while (!isFinished && lines.next(line)) {
      const std::optional<Text> decoded = decodedNumericEntities(line.text);
      cutMergedLine(decoded ? TextView(*decoded) : line.text, candidates);
      for (const TextView candidate : candidates) {
        if (isFinished) {
          drop(DropReason::afterEnd, line.begin);
        } else {
          isFinished = take(candidate, line.begin);
        }
      }
    }
    location = lines.location();
  }

 private:
  void drop(DropReason reason, std::size_t offset) { m_result.dropped.push_back({reason, offset}); }

  /// @returns whether the line ends the card
  bool take(TextView line, std::size_t offset) {
    const TextView bare = trimWhitespace(line);
    if (!m_isOpen) {
      const bool isBegin = equalIgnoringCase(bare, cVCardComponent_BEGINVCARD);
      if (!isBegin && (bare.empty() || line.find(u':') == TextView::npos)) {
        if (!bare.empty()) {
          drop(DropReason::outsideCard, offset);
        }
        return false;
      }
      m_result.cards.push_back({offset, 0, false, {}});
      m_isOpen = true;
      if (isBegin) {
        return false;
      }
    }
    CheckedCard& card = m_result.cards.back();
    if (equalIgnoringCase(bare, cVCardComponent_ENDVCARD)) {
      card.isEnded = true;
      return true;
    }
    auto property = std::make_shared<VCardProperty>();
    const DropReason reason = ContentLineParser(card.version, &m_formatter).parse(line, *property);
    if (reason != DropReason::none) {
      if (!bare.empty()) {
        drop(reason, offset);
      }
      return false;
    }
    if (card.version == 0) {
      card.version = static_cast<VersionCode>(std::min<std::uint64_t>(property->versionValue(), 5));
    }
    card.lines.push_back({std::move(property), offset, Text(line)});
    return false;
  }

  bool m_isOpen = false;
  DateFormatter m_formatter;
  CheckedCards& m_result;
};

} // namespace

CheckedCards checkedCards(TextView text) {
  CheckedCards result;
  Walk walk(result);
  for (std::size_t location = 0; location < text.size();) {
    const std::size_t before = location;
    walk.walkCard(text, location);
    location = std::max(location, before + 1);
  }
  return result;
}

} // namespace cardwright
