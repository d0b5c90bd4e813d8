#pragma once

#include "cardwright/face.h"

#include <cstddef>

namespace cardwright {

/// What cards hold.
struct Content {
  std::size_t properties = 0;
  std::size_t characters = 0; ///< of names, groups, parameters and texts
};

/// Asks each property of each card for its name, its parameters and its value.
[[nodiscard]] Content contentOf(const VCardList& cards);

} // namespace cardwright
