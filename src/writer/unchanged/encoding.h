#pragma once

#include "base/readable_text.h"
#include "writer/unchanged/bytes.h"

namespace cardwright {

/// Appends a text as UTF-8.
/// @param output has room for roomForUtf8
/// @returns false where there is a character that no value may hold
[[nodiscard]] bool encodeSound(Bytes& output, const ReadableText& text) noexcept;

/// Appends a short text of ASCII without signs, as most are, in one step.
/// @param output likewise
/// @returns false for other texts, and where the processor has no wide lanes; nothing is appended
[[nodiscard]] bool encodeSimple(Bytes& output, TextView text) noexcept;

} // namespace cardwright
