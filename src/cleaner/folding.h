#pragma once

#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

/// Whether a logical line needs no folding.
[[nodiscard]] bool fitsOnOneLine(TextView line) noexcept;

/// Takes the next output line from the front of a logical line that is to be folded: at most
/// `budget` bytes of UTF-8, ended behind white space where there is any. Characters are never cut:
/// one that is longer than the budget stands alone.
/// @returns a part of `rest`, which is shortened by it; empty only when `rest` is
[[nodiscard]] TextView takeFoldedLine(TextView& rest, std::size_t budget);

/// Bytes of the first output line, and of the later ones behind the blank that each begins with.
inline constexpr std::size_t kFirstFoldBytes = 75;
inline constexpr std::size_t kLaterFoldBytes = 74;

} // namespace cardwright
