#pragma once

#include "cardwright/text.h"

#include <optional>

namespace cardwright {

/// The VALUE that a structured default type implies already; absent for a type without one.
[[nodiscard]] std::optional<TextView> equivalentType(TextView defaultType);

} // namespace cardwright
