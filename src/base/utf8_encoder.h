#pragma once

#include "base/ascii.h"
#include "base/ascii_lanes.h"
#include "base/processor.h"
#include "base/readable_text.h"
#include "base/utf8_lanes.h"
#include "base/utf8_wide_lanes.h"

#include <cstddef>

namespace cardwright {

/// How many bytes encodeUtf8 may write, those behind the last one that counts included.
[[nodiscard]] constexpr std::size_t roomForUtf8(std::size_t units) noexcept {
  constexpr std::size_t kWrittenAtOnce = 64;
  return 3 * units + kWrittenAtOnce; // No unit takes more than three bytes.
}

/// Writes a code point as UTF-8.
/// @returns where it ends
[[nodiscard]] char* putCodePoint(char* output, char32_t codePoint) noexcept;

/// Encodes a text as UTF-8.
/// @param output has room for roomForUtf8
/// @param allows is asked for each code point that XML could not hold, and for some that it could;
///               may change it; what it does not allow ends the text
/// @returns where it ends; null where something is not allowed
template <typename Allows>
[[nodiscard]] char* encodeUtf8(ReadableText text, char* output, Allows allows) {
  while (!text.text.empty()) {
    const EncodedRun run =
        usesWideLanes ? encodeByWideLanes(text.text, output) : encodeByLanes(text, output);
    output += run.bytes;
    text.text.remove_prefix(run.units);
    if (text.text.empty()) {
      break;
    }
    std::size_t count = narrowAscii(text.text.data(), text.text.size(), output);
    output += count;
    if (count == 0) {
      char32_t codePoint = codePointAt(text.text, 0);
      count = unitLength(codePoint);
      if (!allows(codePoint)) {
        return nullptr;
      }
      output = putCodePoint(output, codePoint);
    }
    text.text.remove_prefix(count);
  }
  return output;
}

} // namespace cardwright
