#pragma once

#include "cardwright/text.h"

#include <vector>

namespace cardwright {

/// Cuts a line that carries several properties whose line breaks were lost, only where a header
/// cannot be part of the value before it.
/// @param pieces receives views of the line
/// @returns false when the line had better stay whole; the pieces then mean nothing
[[nodiscard]] bool cutMergedProperties(TextView line, std::vector<TextView>& pieces);

} // namespace cardwright
