#pragma once

#include <cstdlib>

namespace cardwright {

/// Stops where something does not hold, so that a debugger shows what.
inline void demand(bool isTrue) {
  if (!isTrue) {
    std::abort();
  }
}

} // namespace cardwright
