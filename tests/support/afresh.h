#pragma once

#include "support/round_trip.h"

#include <memory>

namespace cardwright {

/// A card with the same properties, of which nothing is known of lines that they were read from.
[[nodiscard]] inline std::shared_ptr<VCard> afresh(const VCard& card) {
  auto other = std::make_shared<VCard>();
  other->setPropertyDict(card.propertyDict());
  return other;
}

/// What is written of the card's properties.
[[nodiscard]] inline Text writtenAfresh(const VCard& card, VersionCode version) {
  return written(*afresh(card), version);
}

} // namespace cardwright
