#pragma once

#include "support/round_trip.h"

namespace cardwright {

/// What is written of the card's properties, where nothing is known of lines that they were read
/// from.
[[nodiscard]] inline Text writtenAfresh(const VCard& card, VersionCode version) {
  VCard other;
  other.setPropertyDict(card.propertyDict());
  return written(other, version);
}

} // namespace cardwright
