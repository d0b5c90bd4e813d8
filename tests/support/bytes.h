#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace cardwright {

/// "c3a9" is the two bytes C3 A9.
inline std::string bytesFromHex(std::string_view hex) {
  std::string bytes;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
    bytes.push_back(static_cast<char>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16)));
  }
  return bytes;
}

} // namespace cardwright
