#pragma once

#include "base/ascii.h"
#include "cardwright/text.h"

namespace cardwright {

/// Whether a code point is half a character; what codePointAt gives is one only where it is alone.
[[nodiscard]] constexpr bool isSurrogate(char32_t codePoint) noexcept {
  return codePoint >= 0xD800 && codePoint < 0xE000;
}

/// A text as a value can hold it: without control characters but TAB and LF, without halves of
/// characters, each line break one LF.
[[nodiscard]] Text valueText(TextView text);

/// Whether valueText() takes more away than the CR of line breaks.
[[nodiscard]] bool losesCharacters(TextView text) noexcept;

/// Appends a text that valueText() made, escaped.
void appendEscaped(Text& output, TextView text, bool escapeSemicolons);

/// Escapes blanks at the ends of what was appended to `output` behind `begin`, so that they are not
/// trimmed. A backslash in front of a blank that is trimmed stands for nothing.
void protectBlanks(Text& output, std::size_t begin);

} // namespace cardwright
