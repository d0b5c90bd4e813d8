#include "base/fatal.h"

#include <cstdio>
#include <cstdlib>

namespace cardwright {

void fatalError(std::string_view message) noexcept {
  static_cast<void>(
      std::fprintf(stderr, "cardwright: %.*s\n", static_cast<int>(message.size()), message.data()));
  std::abort();
}

} // namespace cardwright
