#pragma once

#include "cardwright/text.h"

#include <string>
#include <string_view>

namespace cardwright {

/// Decodes UTF-8. Each byte sequence that is none becomes one U+FFFD for every maximal part of it
/// that could have begun a character (Unicode, section 3.9). A byte-order mark stays. May be called
/// from any thread.
[[nodiscard]] [[gnu::visibility("default")]] Text textFromUtf8(std::string_view utf8);

/// Encodes as UTF-8; a lone surrogate, which UTF-8 cannot carry, becomes U+FFFD. May be
/// called from any thread.
[[nodiscard]] [[gnu::visibility("default")]] std::string utf8FromText(TextView text);

/// The same, appended to `output`.
[[gnu::visibility("default")]] void appendUtf8(std::string& output, TextView text);

} // namespace cardwright
