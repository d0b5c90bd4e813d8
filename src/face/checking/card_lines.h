#pragma once

#include "cardwright/read_report.h"
#include "cardwright/vcard_property.h"

#include <memory>
#include <vector>

namespace cardwright {

/// A property of a card, and where its line begins in the text that was walked.
struct CheckedLine {
  std::shared_ptr<VCardProperty> property;
  std::size_t offset = 0;
  Text line; ///< the logical line
};

struct DroppedText {
  DropReason reason = DropReason::none;
  std::size_t offset = 0;
};

struct CheckedCard {
  std::size_t offset = 0;
  VersionCode version = 0; ///< 0 where none is stated
  bool isEnded = false;
  std::vector<CheckedLine> lines;
};

struct CheckedCards {
  std::vector<CheckedCard> cards;
  std::vector<DroppedText> dropped;
};

/// Reads a text as the reader does, and keeps what stood where.
[[nodiscard]] CheckedCards checkedCards(TextView text);

} // namespace cardwright
