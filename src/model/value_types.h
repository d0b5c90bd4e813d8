#pragma once

#include "cardwright/text.h"

#include <optional>

namespace cardwright {

/// The VALUE that a structured default type implies already; absent for a type without one.
[[nodiscard]] std::optional<TextView> equivalentType(TextView defaultType);

/// VCardProperty::defaultTypeForVersion of a name.
[[nodiscard]] TextView defaultTypeOf(TextView name, VersionCode version) noexcept;

/// VCardProperty::isMultiValueProperty of a name.
[[nodiscard]] bool isMultiValueName(TextView name) noexcept;

} // namespace cardwright
