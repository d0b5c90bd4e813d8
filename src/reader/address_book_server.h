#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <optional>

namespace cardwright {

// Properties whose name begins with "X-ADDRESSBOOKSERVER-": some servers glue them together or
// indent them wrongly.

/// Where the name begins that starts at `position`: behind a group and its dot, if there is one.
[[nodiscard]] std::size_t addressBookServerNameStart(TextView text, std::size_t position) noexcept;

/// How many units at `position` are "X-ADDRESSBOOKSERVER-" without regard to case.
[[nodiscard]] std::optional<std::size_t> addressBookServerPrefix(TextView text,
                                                                 std::size_t position);

/// Whether a line's name, without its group, begins with the prefix.
[[nodiscard]] bool isAddressBookServerLine(TextView line);

/// Where such a property begins at the location, blanks aside.
[[nodiscard]] std::optional<std::size_t> addressBookServerPropertyAhead(TextView text,
                                                                        std::size_t location);

} // namespace cardwright
