#pragma once

#include "cardwright/text.h"

#include <algorithm>
#include <cstddef>

namespace cardwright {

/// A text without every place where a piece stands in it, folds for example; found from its start
/// on, in one pass.
[[nodiscard]] inline Text withoutPiece(TextView text, TextView piece) {
  Text left;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t found = std::min(text.find(piece, at), text.size());
    left.append(text.substr(at, found - at));
    at = found + piece.size();
  }
  return left;
}

} // namespace cardwright
