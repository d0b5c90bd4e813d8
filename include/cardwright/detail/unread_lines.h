#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <memory>

namespace cardwright::detail {

struct LineStore;

/// The content lines of a card that was read but not yet asked for its properties. They are known
/// to be sound; what they say is looked at with the first question, for most cards of a large file
/// are never asked any.
struct UnreadLines {
  std::shared_ptr<const LineStore> store; ///< shared with the other cards of the text
  std::size_t first = 0;                  ///< number of the card's first line
  std::size_t count = 0;
  std::size_t countBeforeVersion = 0; ///< how many of them are read without knowing a version
  VersionCode version = 0;            ///< in which the others are read
};

} // namespace cardwright::detail
