#pragma once

#include "cardwright/text.h"

#include <optional>

namespace cardwright {

// Names as they can stand in front of a line: without line breaks and other control characters,
// delimiters, quotes, blanks at their ends, and what could become a numeric reference.

/// Absent for an absent group, and for one of which nothing is left; an empty group is a group.
[[nodiscard]] std::optional<Text> cleanedGroup(std::optional<TextView> group);
/// The name of a property; behind a group it may hold ".".
[[nodiscard]] Text cleanedPropertyName(TextView name, bool hasGroup);
[[nodiscard]] Text cleanedParameterName(TextView name);

} // namespace cardwright
