#pragma once

#include "cardwright/text.h"
#include "cardwright/vcard.h"
#include "support/card_model.h"

#include <memory>
#include <optional>
#include <string>

namespace cardwright {

/// The version code that a card is written for: its own, or 3 where it states none of 2, 3 and 4.
[[nodiscard]] VersionCode ownVersion(const VCard& card);

/// The card as text.
[[nodiscard]] Text written(const VCard& card, VersionCode version);

/// All cards of a text to which nothing was done before.
[[nodiscard]] VCardList readUncleaned(TextView text);

/// Why a property cannot be written so that the same property is read again.
enum class Unwritable {
  nameInQuotes,           ///< group, name or parameter name could only stand in quotes
  lineBreakInHeader,      ///< a line break in a group, a name or a parameter, where none is escaped
  typeWithEqualsSign,     ///< in 2.1 a bare type with "=" is another parameter
  caseWithAnotherMeaning, ///< the upper-case form of a VALUE or ENCODING is another name
  tornLine,               ///< the reader takes part of the line for a soft break or another line
  reference,              ///< the line holds what looks like a numeric character reference
  mergedLine,             ///< the line looks like several properties
  frameLine,              ///< the line is END:VCARD
};

[[nodiscard]] std::optional<Unwritable> whyUnwritable(const VCardProperty& property,
                                                      VersionCode version);

/// Takes properties that cannot be written out of a card.
/// @returns how many
std::size_t removeUnwritable(VCard& card, VersionCode version);

/// What is read again when a card without unwritable properties was written for its own version:
/// the card itself but for what the rules of reading and writing change. Absent for a card that
/// states its version in such a way that the rules change even that.
[[nodiscard]] std::optional<CardModel> expectedAfterRoundTrip(const VCard& card);

/// What came of writing a card for its own version and reading it again.
struct RoundTrip {
  bool isCompared = false;    ///< false where the version that the card states does not survive
  std::size_t unwritable = 0; ///< properties that were left out, of the card too
  std::string surprises; ///< what came out otherwise than the rules say; empty when nothing did
};

[[nodiscard]] RoundTrip roundTrip(VCard& card);

} // namespace cardwright
