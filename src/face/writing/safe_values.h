#pragma once

#include "cardwright/date_formatter.h"
#include "cardwright/vcard_value.h"
#include "face/writing/value_kind.h"

namespace cardwright {

/// A value as it stands behind the colon, unfolded.
struct SafeValue {
  Text text;
  bool isCleaned = false; ///< characters are missing that no value can hold
};

/// Writes a value so that the same value is read from it.
/// @param parting that of the property
[[nodiscard]] SafeValue safeValue(const VCardValue& value, VersionCode version, Parting parting,
                                  DateFormatter& formatter);

} // namespace cardwright
