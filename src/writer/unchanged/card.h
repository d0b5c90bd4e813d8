#pragma once

#include "cardwright/vcard.h"
#include "writer/unchanged/output.h"

namespace cardwright {

/// Appends what VCard::generate appends for a card of which nothing was changed since it was read,
/// from the lines that it was read from. What it consists of lies scattered in memory and is only
/// looked at for lines that are not of the ordinary forms.
/// @param lines what it was read from
/// @returns false, and leaves the output as it was, for a card that is not plain enough
[[nodiscard]] bool appendUnchanged(CardOutput& output, const VCard& card,
                                   const detail::CardLines& lines, VersionCode version,
                                   DateFormatter* formatter);

/// The same as writeCards writes it: what is not ordinary goes to the output as a property.
/// @param stated what the card states, as of plainlyStatedVersion
/// @returns false also for a card whose labels and address formats are not plainly those of one
///          property each
[[nodiscard]] bool appendUnchangedSafely(CardOutput& output, const VCard& card,
                                         const detail::CardLines& lines, VersionCode version,
                                         DateFormatter* formatter, VersionCode stated);

/// The version that a card states in a line of nothing else, its first VERSION; 0 for none.
[[nodiscard]] VersionCode plainlyStatedVersion(const detail::CardLines& lines) noexcept;

} // namespace cardwright
