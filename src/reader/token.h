#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <optional>

namespace cardwright {

/// Reads a token at `location` and moves the location behind it: after blanks, what stands between
/// double quotes, or everything up to one of the delimiters.
/// @returns absent when the token is empty, or when nothing follows it though something must; the
///          location may have moved all the same
[[nodiscard]] std::optional<TextView> scanToken(TextView text, std::size_t& location,
                                                TextView delimiters, bool endOfLineIsOK) noexcept;

} // namespace cardwright
