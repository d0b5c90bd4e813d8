#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace cardwright {

/// What decodeFile did.
struct DecodingReport {
  std::string encoding;           ///< name of the encoding that the bytes were taken to be in
  std::size_t droppedBytes = 0;   ///< bytes that are nothing in that encoding
  std::size_t tornCharacters = 0; ///< characters put together again that a fold had torn apart
};

/// Decodes a whole file, without the byte-order mark at its start.
///
/// A byte-order mark tells the encoding. Without one, zeros in every second byte of the head mean
/// UTF-16. Sound UTF-8 is UTF-8, and so is a file with more sound multi-byte characters than broken
/// bytes. For the rest, the lines with bytes above 7F are looked at for a legacy encoding, which is
/// windows-1252 when they do not tell clearly. Bytes that cannot be decoded are dropped.
///
/// May be called from any thread.
///
/// @param bytes a file, whatever is in it
/// @param encoding name of the encoding, if it is known better: one of those that vCards use, or
///   any name that ICU knows; without regard to case
/// @param report receives what was done; left alone when the name is not known
/// @returns absent when the name is not known
[[nodiscard]] [[gnu::visibility("default")]] std::optional<Text>
decodeFile(std::string_view bytes, std::optional<std::string_view> encoding = std::nullopt,
           DecodingReport* report = nullptr);

/// Whether decodeFile knows the name of an encoding, without regard to case. May be called from any
/// thread.
[[nodiscard]] [[gnu::visibility("default")]] bool isKnownEncoding(std::string_view name);

} // namespace cardwright
