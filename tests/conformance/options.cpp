#include "conformance/options.h"

#include <charconv>
#include <string_view>

namespace cardwright::conformance {
namespace {

[[nodiscard]] bool readNumber(std::string_view digits, std::size_t& number) {
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  return error == std::errc() && stop == end;
}

} // namespace

std::optional<Options> optionsFromArguments(std::span<const char* const> arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    const bool hasNext = i + 1 < arguments.size();
    if (argument == "--only" && hasNext) {
      options.only.emplace_back(arguments[++i]);
    } else if (argument == "--differences" && hasNext) {
      if (!readNumber(arguments[++i], options.differences)) {
        return std::nullopt;
      }
    } else if (!argument.starts_with('-') && !options.folder) {
      options.folder = argument;
    } else {
      return std::nullopt;
    }
  }
  return options;
}

} // namespace cardwright::conformance
