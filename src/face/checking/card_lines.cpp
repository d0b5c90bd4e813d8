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
#include <functional>
#include <utility>

namespace cardwright {

namespace {

/// Where a line cannot be read on; its beginning where a whole part is missing.
std::size_t brokenAt(TextView line, DropReason reason, std::size_t blanks) {
  const bool isOnTheSpot =
      reason == DropReason::emptyParameterName || reason == DropReason::emptyParameterValue;
  return isOnTheSpot ? partsOfContentLine(line).end : blanks;
}

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
      std::optional<Text> decoded = decodedNumericEntities(line.text);
      m_result.lines.push_back({line.begin, decoded ? std::move(*decoded) : Text(line.text)});
      const TextView whole = m_result.lines.back().text;
      cutMergedLine(whole, candidates);
      for (const TextView candidate : candidates) {
        const std::size_t position =
            candidate.empty() ? 0 : static_cast<std::size_t>(candidate.data() - whole.data());
        if (isFinished) {
          drop(DropReason::afterEnd, position);
        } else {
          isFinished = take(candidate, position);
        }
      }
    }
    location = lines.location();
  }

 private:
  /// A place in the line that is walked.
  [[nodiscard]] LinePlace placeAt(std::size_t position) const noexcept {
    return {m_result.lines.size() - 1, position};
  }
  void drop(DropReason reason, std::size_t position) {
    m_result.dropped.push_back({reason, placeAt(position)});
  }

  /// @param position where the line stands in the one that is walked
  /// @returns whether the line ends the card
  bool take(TextView line, std::size_t position) {
    const TextView bare = trimWhitespace(line);
    const std::size_t blanks =
        bare.empty() ? 0 : static_cast<std::size_t>(bare.data() - line.data());
    if (!m_isOpen) {
      const bool isBegin = equalIgnoringCase(bare, cVCardComponent_BEGINVCARD);
      if (!isBegin && (bare.empty() || line.find(u':') == TextView::npos)) {
        if (!bare.empty()) {
          drop(DropReason::outsideCard, position + blanks);
        }
        return false;
      }
      m_result.cards.push_back({placeAt(position), 0, false, {}});
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
        drop(reason, position + brokenAt(line, reason, blanks));
      }
      return false;
    }
    if (card.version == 0) {
      card.version = static_cast<VersionCode>(std::min<std::uint64_t>(property->versionValue(), 5));
    }
    card.lines.push_back({std::move(property), placeAt(position), line});
    return false;
  }

  bool m_isOpen = false;
  DateFormatter m_formatter;
  CheckedCards& m_result;
};

} // namespace

bool CheckedLine::holds(TextView part) const noexcept {
  return std::less_equal<>()(line.data(), part.data()) &&
         std::less_equal<>()(part.data() + part.size(), line.data() + line.size());
}

LinePlace CheckedLine::placeOf(TextView part) const noexcept {
  const std::size_t within = holds(part) ? static_cast<std::size_t>(part.data() - line.data()) : 0;
  return {place.line, place.position + within};
}

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
