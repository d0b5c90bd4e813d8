#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace cardwright {

/// So many bytes are looked at together.
inline constexpr std::size_t kSignWindow = 64;

/// Behind the bytes that count, so many more are read.
inline constexpr std::size_t kSignsReadBeyond = 16;

/// Whether a text value may not hold a character of ASCII as it is: ",", ";", "\", controls and
/// DEL.
[[nodiscard]] constexpr bool isSign(unsigned char byte) noexcept {
  return byte < ' ' || byte == ',' || byte == ';' || byte == '\\' || byte == 0x7F;
}

/// For each character of ASCII all bits, or none.
inline constexpr auto kSigns = [] {
  std::array<std::uint8_t, 128> signs{};
  for (std::size_t byte = 0; byte < signs.size(); ++byte) {
    signs[byte] = isSign(static_cast<unsigned char>(byte)) ? 0xFF : 0;
  }
  return signs;
}();

/// Where the signs are in bytes of UTF-8.
/// One bit for each byte, the first one lowest.
/// @param count at most kSignWindow
[[nodiscard]] std::uint64_t signsIn(const char* bytes, std::size_t count) noexcept;
[[nodiscard]] std::uint64_t signsInPlainly(std::string_view bytes) noexcept;

} // namespace cardwright
