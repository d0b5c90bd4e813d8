#pragma once

#include "cardwright/vcard_value.h"

#include <memory>

namespace cardwright {

/// Makes an empty value for a value type name.
using ValueMaker = std::shared_ptr<VCardValue> (*)(TextView type);

/// What makes values of the class that the type name selects, without regard to case; null for a
/// name without a class of its own.
[[nodiscard]] ValueMaker valueMakerFor(TextView type);

} // namespace cardwright
