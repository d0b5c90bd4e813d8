#pragma once

#include <cstdint>

namespace cardwright {

/// What came of rewriting a part of a line.
enum class Rewriting : std::uint8_t {
  done,
  needsRoom,    ///< more than there was
  needsProperty ///< which alone can tell what is written
};

} // namespace cardwright
