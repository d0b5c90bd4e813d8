#pragma once

#include "base/readable_text.h"
#include "writer/unchanged/bytes.h"

namespace cardwright {

/// Appends a text as UTF-8.
/// @param output has room for roomForUtf8
/// @returns false where there is a character that no value may hold
[[nodiscard]] bool encodeSound(Bytes& output, const ReadableText& text) noexcept;

} // namespace cardwright
