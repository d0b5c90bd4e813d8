#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>

namespace cardwright {

/// What random tests start from: CARDWRIGHT_SEED of the environment, else always the same number.
inline std::uint64_t testSeed() {
  const char* wanted = std::getenv("CARDWRIGHT_SEED");
  return wanted != nullptr ? std::stoull(wanted) : 20240229;
}

} // namespace cardwright
