#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace cardwright {

/// So many bytes are looked at together.
inline constexpr std::size_t kSignWindow = 64;

/// Behind the bytes that count, so many more are read.
inline constexpr std::size_t kSignsReadBeyond = 16;

/// Where the signs are that a text value may not hold as they are: ",", ";", "\", controls and DEL.
/// One bit for each byte, the first one lowest.
/// @param count at most kSignWindow
[[nodiscard]] std::uint64_t signsIn(const char* bytes, std::size_t count) noexcept;
[[nodiscard]] std::uint64_t signsInPlainly(std::string_view bytes) noexcept;

} // namespace cardwright
