#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace cardwright::conformance {

/// What the command line asks for.
struct Options {
  std::optional<std::string> folder;
  std::vector<std::string> only;
  std::size_t differences = 3;
};

/// @returns absent for a command line that means nothing
[[nodiscard]] std::optional<Options> optionsFromArguments(std::span<const char* const> arguments);

} // namespace cardwright::conformance
