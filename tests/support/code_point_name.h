#pragma once

#include <cstdio>
#include <string>

namespace cardwright {

/// "U+00E9": streams do not print characters wider than a byte.
inline std::string codePointName(char32_t codePoint) {
  char buffer[16];
  std::snprintf(buffer, sizeof(buffer), "U+%04X", static_cast<unsigned>(codePoint));
  return buffer;
}

} // namespace cardwright
