#pragma once

#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

/// A text in memory that may be read beyond the text's end.
struct ReadableText {
  TextView text;
  const char16_t* readableEnd; ///< not in front of the text's end

  [[nodiscard]] ReadableText substr(std::size_t begin) const noexcept {
    return {text.substr(begin), readableEnd};
  }
  /// How many units from `begin` on may be read.
  [[nodiscard]] std::size_t readable(std::size_t begin) const noexcept {
    return static_cast<std::size_t>(readableEnd - text.data()) - begin;
  }
};

} // namespace cardwright
