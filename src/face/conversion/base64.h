#pragma once

#include "cardwright/text.h"

#include <optional>
#include <string>

namespace cardwright {

/// The digits of a base64 text (RFC 4648) without blanks and line breaks; absent when it is
/// damaged: with other characters, or a length that cannot be.
[[nodiscard]] std::optional<Text> soundBase64(TextView text);

[[nodiscard]] bool isBase64Digit(char16_t unit) noexcept;

/// The first bytes of a sound base64 text.
[[nodiscard]] std::string headBytes(TextView base64, std::size_t count);

} // namespace cardwright
