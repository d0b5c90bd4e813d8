#pragma once

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <limits>

namespace cardwright {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_UNDEFINED__)
inline constexpr bool kTimesMeanNothing = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(undefined_behavior_sanitizer)
inline constexpr bool kTimesMeanNothing = true;
#else
inline constexpr bool kTimesMeanNothing = false;
#endif
#else
inline constexpr bool kTimesMeanNothing = false;
#endif

/// Processor time of the best of five runs, in seconds.
template <typename Operation>
double bestTime(Operation operation) {
  double best = std::numeric_limits<double>::infinity();
  for (int run = 0; run < 5; ++run) {
    const std::clock_t begin = std::clock();
    operation();
    best = std::min(best, static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
  }
  return best;
}

} // namespace cardwright
