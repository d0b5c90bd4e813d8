#pragma once

#include <cardwright/text.h>

#include <optional>
#include <string_view>

namespace cardwright::tool {

/// The version that people call "2.1", "3.0" or "4.0"; absent for anything else.
[[nodiscard]] std::optional<VersionCode> versionNamed(std::string_view name);

} // namespace cardwright::tool
