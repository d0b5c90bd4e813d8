#pragma once

#include "cardwright/text_place.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright {

/// How bad a finding is.
enum class Severity : std::uint8_t {
  warning, ///< readers may stumble over it
  error,   ///< something is lost, or the card is none of its version
};

/// Something that is wrong with a file.
struct Finding {
  std::string_view code;                 ///< stable: docs/checks.md lists them all
  Severity severity = Severity::warning; ///< how bad it is
  TextPlace place;                       ///< of the original file
  std::size_t column = 1;                ///< counted from 1, in characters
  std::string text;                      ///< UTF-8
  std::size_t count = 1;                 ///< how often, counted from this place on
};

/// How a file is checked.
struct CheckOptions {
  /// The encoding, where it is known better than the bytes tell; an unknown name counts as none.
  std::optional<std::string> encoding;
  /// Tell a mistake each time that it is made; else it is told once, with its count.
  bool all = false;
};

/// Finds what is wrong with the cards of a file, in the order of its text. May be called from any
/// thread.
/// @param bytes   a file in any encoding, see decodeFile()
/// @param options see CheckOptions
/// @returns nothing for a file in order; broken input is told as a finding, and none is an error
[[nodiscard]] [[gnu::visibility("default")]] std::vector<Finding>
checkText(std::string_view bytes, const CheckOptions& options = {});

} // namespace cardwright
