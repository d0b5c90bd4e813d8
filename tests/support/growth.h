#pragma once

#include <algorithm>
#include <ctime>

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

/// Processor time of one call, in seconds.
template <typename Operation>
double timeOf(Operation operation) {
  const std::clock_t begin = std::clock();
  operation();
  return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

/// How many times as long the second operation takes as the first, each at its best. The machine
/// may be busy with something else: up to ten further rounds are run while the ratio is `limit` or
/// more.
template <typename Small, typename Large>
double growth(Small small, Large large, double limit) {
  double bestSmall = timeOf(small);
  double bestLarge = timeOf(large);
  for (int round = 0; round < 10; ++round) {
    bestSmall = std::min(bestSmall, timeOf(small));
    bestLarge = std::min(bestLarge, timeOf(large));
    if (bestLarge < bestSmall * limit) {
      break;
    }
  }
  return bestLarge / bestSmall;
}

} // namespace cardwright
