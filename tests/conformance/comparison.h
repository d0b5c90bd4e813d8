#pragma once

#include "conformance/json.h"

#include <optional>
#include <string>

namespace cardwright::conformance {

/// Where two JSON values begin to differ.
struct Difference {
  std::string path; ///< such as ".cards[0].uid"; empty for the values themselves
  std::string expected;
  std::string got;
};

/// The first difference of two values; absent when they are equal. The order of an object's
/// members means nothing, and numbers are equal when they are the same number.
[[nodiscard]] std::optional<Difference> firstDifference(const Json& expected, const Json& got);

} // namespace cardwright::conformance
