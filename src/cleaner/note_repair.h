#pragma once

#include "cardwright/text.h"

namespace cardwright {

/// A NOTE line in whose value the entities of line breaks are written as "\n".
[[nodiscard]] Text withEscapedLineBreaks(TextView noteLine);

} // namespace cardwright
