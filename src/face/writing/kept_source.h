#pragma once

#include "cardwright/date_formatter.h"
#include "cardwright/vcard_value.h"

#include <optional>

namespace cardwright {

/// The text that a value was read from, where that is better than what the value writes: it could
/// not be understood, or would be written as another one.
[[nodiscard]] std::optional<TextView> sourceToKeep(const VCardValue& value, VersionCode version,
                                                   DateFormatter& formatter);

} // namespace cardwright
