#pragma once

#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

/// What one look tells of a line. A plain line is one that no pass of the cleaner would change,
/// join with its neighbours or remember; most lines are.
enum class PlainLine { property, cardBegin, cardEnd };

/// What is known of a plain line.
struct PlainLook {
  PlainLine kind;
  /// Whether it is a property that the reader takes without a question.
  bool isSoundProperty;
  /// Whether the line has neither continuations nor signs that the reader looks into.
  bool isSimple;
  std::size_t end;  ///< where the first physical line ends
  std::size_t next; ///< where the next line begins
};

/// Looks at the logical line that begins at `begin`, before the end of the text.
/// @param look filled where the answer is true: the line is plain
[[nodiscard]] bool plainLineAt(TextView text, std::size_t begin, PlainLook& look);

} // namespace cardwright
