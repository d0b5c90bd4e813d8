#pragma once

#include "cardwright/detail/change_mark.h"
#include "cardwright/text.h"

#include <cstddef>
#include <memory>

namespace cardwright {

class Arena;

namespace detail {

struct LineStore;

struct [[gnu::visibility("default")]] ArenaRelease {
  void operator()(Arena* arena) const noexcept;
};
/// Keeps the memory of objects that were made together.
using ArenaHold = std::unique_ptr<Arena, ArenaRelease>;

/// The content lines that a card was read from. They are known to be sound; what they say is looked
/// at with the first question, for most cards of a large file are never asked any. They are kept: a
/// card that nobody changes is written from them.
struct CardLines {
  std::shared_ptr<const LineStore> store; ///< shared with the other cards of the text
  std::size_t first = 0;                  ///< number of the card's first line
  std::size_t count = 0;
  std::size_t countBeforeVersion = 0; ///< how many of them are read without knowing a version
  VersionCode version = 0;            ///< in which the others are read; 0 for none
  ChangeMark* changes = nullptr;      ///< in the store; of the card and what it consists of
  ArenaHold arena;                    ///< of what was made of them; null as long as nothing was
};

} // namespace detail

} // namespace cardwright
