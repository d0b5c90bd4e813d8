#pragma once

#include <string>
#include <string_view>

namespace cardwright::tool {

/// The difference between two texts in the form that patch programs read, with three lines of what
/// stays around each change. Where two lines differ in nothing but their ends, the ends are shown.
/// @returns empty when there is none
[[nodiscard]] std::string unifiedDiff(std::string_view before, std::string_view after,
                                      std::string_view name);

} // namespace cardwright::tool
