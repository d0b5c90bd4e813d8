#pragma once

#include "cardwright/vcard.h"

#include <string>

namespace cardwright {

/// Converts a card to a version, writes and reads it.
/// @returns what must not be: a second conversion that changes something, another number of cards,
///          sums that do not add up; empty when all is well
[[nodiscard]] std::string conversionSurprises(const VCard& card, VersionCode version);

/// Converts a card to a version, writes and reads it, converts it to another and back, and looks
/// for the properties that it had.
/// @param there a version next to `home`
/// @returns what conversionSurprises() finds on the way, and what is missing in the end
[[nodiscard]] std::string conversionTripSurprises(const VCard& card, VersionCode home,
                                                  VersionCode there);

} // namespace cardwright
