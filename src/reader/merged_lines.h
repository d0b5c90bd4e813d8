#pragma once

#include "cardwright/text.h"

#include <vector>

namespace cardwright {

/// Cuts a line into which several X-ADDRESSBOOKSERVER- properties were merged.
/// @param pieces receives views of the line: the line itself when there is nothing to cut
void cutMergedLine(TextView line, std::vector<TextView>& pieces);

} // namespace cardwright
