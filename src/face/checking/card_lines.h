#pragma once

#include "cardwright/read_report.h"
#include "cardwright/vcard_property.h"

#include <deque>
#include <memory>
#include <vector>

namespace cardwright {

/// A logical line of the text that was walked.
struct WalkedLine {
  std::size_t offset = 0; ///< where it begins in that text
  Text text;
};

/// A place in a logical line.
struct LinePlace {
  std::size_t line = 0;     ///< number among the lines that were walked
  std::size_t position = 0; ///< in the text of the line
};

/// A property of a card. Several may stand on one logical line.
struct CheckedLine {
  std::shared_ptr<VCardProperty> property;
  LinePlace place;
  TextView line; ///< what of the logical line it was read from

  /// Whether a text is part of the line.
  [[nodiscard]] bool holds(TextView part) const noexcept;
  /// The place of a part of the line; that of the property where it is none.
  [[nodiscard]] LinePlace placeOf(TextView part) const noexcept;
};

struct DroppedText {
  DropReason reason = DropReason::none;
  LinePlace place;
};

struct CheckedCard {
  LinePlace place;
  VersionCode version = 0; ///< 0 where none is stated
  bool isEnded = false;
  std::vector<CheckedLine> lines;
};

struct CheckedCards {
  std::deque<WalkedLine> lines; ///< of which the others hold views
  std::vector<CheckedCard> cards;
  std::vector<DroppedText> dropped;
};

/// Reads a text as the reader does, and keeps what stood where.
[[nodiscard]] CheckedCards checkedCards(TextView text);

} // namespace cardwright
