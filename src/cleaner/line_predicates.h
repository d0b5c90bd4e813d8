#pragma once

#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

// What the passes of the cleaner ask about lines, on views and without allocations for ordinary
// lines. The documented operations of VCardCleaner are made of these.

inline constexpr std::size_t kNoColon = TextView::npos;

/// The first colon outside double quotes, or kNoColon.
[[nodiscard]] std::size_t firstUnquotedColon(TextView line);

/// The property name within a header, as it is written: a view of it, without group label and
/// parameters. UpperCasedName makes it comparable.
[[nodiscard]] TextView propertyNameIn(TextView header);

/// Whether a header says ENCODING=QUOTED-PRINTABLE.
[[nodiscard]] bool declaresQuotedPrintable(TextView header);

} // namespace cardwright
