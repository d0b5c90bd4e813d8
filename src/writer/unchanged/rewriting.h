#pragma once

#include "cardwright/text.h"

#include <cstdint>

namespace cardwright {

/// What came of rewriting a part of a line.
enum class Rewriting : std::uint8_t {
  done,
  needsRoom,    ///< more than there was
  needsProperty ///< which alone can tell what is written
};

/// What a header was read as, and is to be written as.
struct HeaderTask {
  VersionCode readAs;  ///< version code that it was read in
  VersionCode version; ///< version code of what is written
  bool isSafe = false; ///< whether it is written as writeCards does it, or as generate

  friend bool operator==(const HeaderTask&, const HeaderTask&) = default;
};

} // namespace cardwright
