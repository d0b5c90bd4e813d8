#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <limits>
#include <thread>

namespace cardwright {

/// Sanitizers slow some operations down more than others: no times are compared under them.
constexpr bool kTimesAreMeaningful =
#if defined(__SANITIZE_ADDRESS__)
    false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(undefined_behavior_sanitizer) ||             \
    __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
    false;
#else
    true;
#endif
#else
    true;
#endif

/// Seconds of this thread's processor time: what else runs on the machine counts for little.
inline double threadSeconds() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// The shortest of three runs.
template <typename Run>
double secondsOf(Run run) {
  double best = std::numeric_limits<double>::infinity();
  for (int i = 0; i < 3; ++i) {
    const double begin = threadSeconds();
    run();
    best = std::min(best, threadSeconds() - begin);
  }
  return best;
}

/// Expects that `run(size)` takes about four times as long for four times the size: quadratic
/// work takes sixteen times as long. Under sanitizers it only runs, for the smallest size.
template <typename Run>
void expectLinear(std::size_t size, Run run) {
  if (!kTimesAreMeaningful) {
    run(size);
    return;
  }
  const double once = secondsOf([&] { run(size); });
  const double fourTimes = secondsOf([&] { run(size * 4); });
  constexpr double kNoise = 0.02;
  EXPECT_LT(fourTimes, once * 9 + kNoise)
      << "size " << size << ": " << once << " s, four times: " << fourTimes << " s";
}

/// How many times as long the second run takes as the first, each at its best. The machine may be
/// busy with something else: up to ten further rounds are run while the ratio is `limit` or more.
template <typename Small, typename Large>
double growthAtOnce(Small small, Large large, double limit) {
  const auto timeOf = [](auto run) {
    const double begin = threadSeconds();
    run();
    return threadSeconds() - begin;
  };
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

/// The same, and begun anew up to four times, later: caches that others fill meanwhile can cost
/// more than the work itself, and one lucky run of the first work spoils all that follow it.
template <typename Small, typename Large>
double growthBetween(Small small, Large large, double limit) {
  double growth = growthAtOnce(small, large, limit);
  for (int attempt = 0; attempt < 4 && growth >= limit; ++attempt) {
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    growth = growthAtOnce(small, large, limit);
  }
  return growth;
}

} // namespace cardwright
