#pragma once

#include "cardwright/vcard.h"

#include <string>

namespace cardwright {

/// Takes out of a card what writeCards() promises nothing for: lines that mention an address-book
/// server's property, and texts that hold "&#".
void removeUnpromised(VCard& card);

/// Writes a card by writeCards() in the syntax of a version and reads it again.
/// @returns what is not as it was promised: other groups, names or values, another number of cards,
///          a third writing that differs from the second; empty when all is well
[[nodiscard]] std::string safeTripSurprises(const VCard& card, VersionCode version);

} // namespace cardwright
