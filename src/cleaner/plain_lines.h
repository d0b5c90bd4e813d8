#pragma once

#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

/// What one look tells of a line. A plain line is one that no pass of the cleaner would change,
/// join with its neighbours or remember; most lines are.
enum class PlainLine {
  none,      ///< not plain, or not to be told at a glance
  property,  ///< plain
  cardBegin, ///< plain, and begins a card
  cardEnd    ///< plain, and ends a card
};

/// Looks at the logical line that begins at `begin`, before the end of the text.
/// @param next receives where the next line begins, unless the answer is none
[[nodiscard]] PlainLine plainLineAt(TextView text, std::size_t begin, std::size_t& next);

} // namespace cardwright
