#pragma once

#include <cstddef>
#include <string_view>

namespace cardwright {

/// One byte sequence of a UTF-8 text.
struct Utf8Sequence {
  char32_t codePoint; ///< meaningless when the sequence is not legal
  std::size_t length; ///< bytes; of an illegal one, its longest part that could begin a character
  bool isLegal;
};

/// Reads the sequence that begins at `at`, which is below the text's size.
[[nodiscard]] Utf8Sequence utf8SequenceAt(std::string_view utf8, std::size_t at) noexcept;

} // namespace cardwright
