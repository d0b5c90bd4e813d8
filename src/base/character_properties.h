#pragma once

namespace cardwright {

/// General category L.
[[nodiscard]] bool isLetter(char32_t codePoint) noexcept;

/// General category L or N.
[[nodiscard]] bool isLetterOrNumber(char32_t codePoint) noexcept;

} // namespace cardwright
