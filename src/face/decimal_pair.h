#pragma once

#include "cardwright/text.h"

#include <utility>

namespace cardwright {

/// The two numbers of a pair, as they stand in it, without blanks around them: digits with a sign
/// and a fraction or without. Both are empty where it is no such pair.
[[nodiscard]] std::pair<TextView, TextView> decimalPair(TextView pair, TextView separators);

} // namespace cardwright
