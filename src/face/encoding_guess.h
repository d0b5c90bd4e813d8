#pragma once

#include <string>
#include <string_view>

namespace cardwright {

/// The encoding that a byte-order mark at the start tells; null without one.
[[nodiscard]] const char* encodingOfMark(std::string_view bytes) noexcept;

/// The UTF-16 whose byte order makes every second byte of the head zero; null if there is none.
[[nodiscard]] const char* encodingOfZeros(std::string_view bytes) noexcept;

/// The encoding that bytes are likely in which are neither UTF-8 nor UTF-16: windows-1252 unless
/// the detector is sure of another.
[[nodiscard]] std::string guessedLegacyEncoding(std::string_view bytes);

} // namespace cardwright
