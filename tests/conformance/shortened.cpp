#include "conformance/shortened.h"

#include <algorithm>

namespace cardwright::conformance {

std::size_t firstMismatch(std::string_view a, std::string_view b) {
  const auto end = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first;
  return static_cast<std::size_t>(end - a.begin());
}

std::string shortened(std::string_view string, std::size_t place, std::size_t length) {
  if (string.size() <= length) {
    return std::string(string);
  }
  const std::size_t start =
      std::min(place > length / 2 ? place - length / 2 : 0, string.size() - length);
  std::string part = start > 0 ? "… " : "";
  part += string.substr(start, length);
  part += start + length < string.size() ? " …" : "";
  return part + " (" + std::to_string(string.size()) + " characters)";
}

} // namespace cardwright::conformance
