#pragma once

#include "base/readable_text.h"
#include "base/utf8_decoder.h"
#include "cardwright/text.h"

#include <cstddef>
#include <string_view>

namespace cardwright {

// UTF-8 and UTF-16 turned into each other sixteen bytes or eight units at a time, on processors
// that can shuffle the bytes of a vector (SSSE3). What these do not know they leave to the plain
// way: they stop in front of it. On other processors they stop at once.

/// How far an encoding call came.
struct EncodedRun {
  std::size_t units; ///< how many were read
  std::size_t bytes; ///< how many were written
};

/// Bytes of UTF-8 that the lanes look at together.
inline constexpr std::size_t kByteLanes = 16;

/// Whether this processor has what it takes to decode so.
[[nodiscard]] bool canDecodeByLanes() noexcept;

/// Decodes the sound UTF-8 that `utf8` begins with up to the first character of four bytes, as long
/// as there are kByteLanes and two more bytes and room for kByteLanes units.
[[nodiscard]] DecodedRun decodeByLanes(std::string_view utf8, char16_t* output,
                                       std::size_t room) noexcept;

/// Encodes the text up to about the first unit that may be none of a value: a half of a pair,
/// U+D7FF, and U+FFFC and what is beyond. Stops also where fewer than eight units may be read.
/// @param output has room for roomForUtf8
[[nodiscard]] EncodedRun encodeByLanes(const ReadableText& text, char* output) noexcept;

} // namespace cardwright
