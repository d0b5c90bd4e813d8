#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace cardwright::conformance {

/// The index at which two strings begin to differ.
[[nodiscard]] std::size_t firstMismatch(std::string_view a, std::string_view b);

/// The part of a long string around a place, with its length behind it.
[[nodiscard]] std::string shortened(std::string_view string, std::size_t place, std::size_t length);

} // namespace cardwright::conformance
