#pragma once

#include "cardwright/text.h"

namespace cardwright {

/// The decimal number that a text begins with, after blanks: sign, digits, fraction and exponent.
/// 0 when there is none; infinite when it is too large. The user's locale plays no part.
[[nodiscard]] double leadingNumber(TextView text);

} // namespace cardwright
