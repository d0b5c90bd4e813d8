#pragma once

#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

// Searches that look at every unit of a text, sixteen at a time where the machine can. The plain
// forms beside them say what they do, and stand in for them elsewhere.

/// What one look at a physical line finds in it.
struct LineMarks {
  std::size_t end = 0;          ///< where the line ends: at a CR, a LF or the end of the text
  std::size_t colon = 0;        ///< its first colon, or its end
  std::size_t nameEnd = 0;      ///< the first ";" before the colon, or the colon
  bool hasDotInHeader = false;  ///< a dot before the colon
  bool hasOddHeader = false;    ///< double quotes, backslashes, NUL or non-ASCII before the colon
  bool hasFurtherColon = false; ///< a second colon
  bool hasAmpersand = false;
  bool hasPrefixHyphen = false; ///< a hyphen behind an "X" or "D", as extended names begin

  friend bool operator==(const LineMarks&, const LineMarks&) = default;
};

/// Looks at the line that begins at `begin`, which is not behind the text's end.
[[nodiscard]] LineMarks marksOfLine(TextView text, std::size_t begin) noexcept;
[[nodiscard]] LineMarks marksOfLinePlainly(TextView text, std::size_t begin) noexcept;

/// The first CR or LF from `begin` on, or the text's end.
[[nodiscard]] std::size_t endOfLine(TextView text, std::size_t begin) noexcept;
[[nodiscard]] std::size_t endOfLinePlainly(TextView text, std::size_t begin) noexcept;

/// The first place where a CR stands before a CR, or npos.
[[nodiscard]] std::size_t findDoubleCr(TextView text) noexcept;

} // namespace cardwright
