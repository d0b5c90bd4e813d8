#pragma once

#include "cardwright/text.h"
#include "cardwright/vocabulary.h"

#include <optional>

namespace cardwright {

/// The VALUE that a structured default type implies already; absent for a type without one.
[[nodiscard]] std::optional<TextView> equivalentType(TextView defaultType);

/// VCardProperty::defaultTypeForVersion of a name.
[[nodiscard]] TextView defaultTypeOf(TextView name, VersionCode version) noexcept;

/// VCardProperty::isMultiValueProperty of a name.
[[nodiscard]] constexpr bool isMultiValueName(TextView name) noexcept {
  return name == cVCardProperty_NICKNAME || name == cVCardProperty_CATEGORIES ||
         name == cVCardProperty_X_QUILLAN_LOCAL_CATEGORIES;
}

} // namespace cardwright
