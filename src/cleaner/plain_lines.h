#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <optional>

namespace cardwright {

/// What one look tells of a line. A plain line is one that no pass of the cleaner would change,
/// join with its neighbours or remember; most lines are.
enum class PlainLine {
  none,      ///< not plain, or not to be told at a glance
  property,  ///< plain
  cardBegin, ///< plain, and begins a card
  cardEnd    ///< plain, and ends a card
};

/// A plain line.
struct PlainLook {
  PlainLine kind = PlainLine::none;
  std::size_t next = 0; ///< where the next line begins
  /// Where the line ends, unless it has continuations or signs that the reader looks into.
  std::optional<std::size_t> simpleEnd = std::nullopt;
  bool isBareProperty = false; ///< whether there is nothing but a name before the value
};

/// Looks at the logical line that begins at `begin`, before the end of the text.
[[nodiscard]] PlainLook plainLineAt(TextView text, std::size_t begin);

} // namespace cardwright
