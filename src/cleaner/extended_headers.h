#pragma once

#include "cardwright/text.h"

#include <vector>

namespace cardwright {

/// Cuts a property at further extended headers in its value: upper-case names that begin with "X-"
/// or "VND-", each followed directly by a colon.
/// @param pieces the parts are appended to it; the whole property when there is nothing to cut
/// @return false as soon as a part turns out not to begin with a header
[[nodiscard]] bool cutAtExtendedHeaders(TextView property, std::vector<TextView>& pieces);

} // namespace cardwright
