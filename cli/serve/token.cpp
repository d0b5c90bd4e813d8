#include "serve/token.h"

#include <array>
#include <string_view>
#include <unistd.h>

namespace cardwright::tool {

std::string randomToken() {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::array<unsigned char, 16> bytes{};
  std::string token;
  if (::getentropy(bytes.data(), bytes.size()) == 0) {
    for (const unsigned byte : bytes) {
      token += kDigits[byte >> 4U];
      token += kDigits[byte & 0xFU];
    }
  }
  return token;
}

} // namespace cardwright::tool
