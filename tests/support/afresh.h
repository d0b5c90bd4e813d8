#pragma once

#include "cardwright/date_formatter.h"
#include "cardwright/vcard.h"

namespace cardwright {

/// What the card's generate writes.
[[nodiscard]] inline Text generated(const VCard& card, VersionCode version) {
  DateFormatter formatter("en_US_POSIX");
  Text output;
  card.generate(output, version, &formatter);
  return output;
}

/// The same, made of the properties, where nothing is known of lines that they were read from.
[[nodiscard]] inline Text generatedAfresh(const VCard& card, VersionCode version) {
  VCard other;
  other.setPropertyDict(card.propertyDict());
  return generated(other, version);
}

} // namespace cardwright
