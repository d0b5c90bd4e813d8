#pragma once

#include "io/diagnostics.h"

#include <optional>
#include <string>
#include <string_view>

namespace cardwright::tool {

/// The path that means standard input.
inline constexpr std::string_view kStandardInput = "-";

/// How messages and headings call a path.
[[nodiscard]] std::string_view displayName(std::string_view path) noexcept;

/// Reads a whole file, or standard input. What goes wrong is said; the result is then absent.
[[nodiscard]] std::optional<std::string> readFile(const std::string& path,
                                                  Diagnostics& diagnostics);

} // namespace cardwright::tool
