#pragma once

#include <barrier>
#include <cstddef>
#include <thread>
#include <vector>

namespace cardwright {

inline constexpr std::size_t kThreads = 8;

/// Runs `step(thread, i)` for each i below `steps` in all threads; all of them begin each step
/// together.
template <typename Step>
void runAtOnce(std::size_t steps, Step step) {
  std::barrier start(static_cast<std::ptrdiff_t>(kThreads));
  std::vector<std::jthread> threads;
  for (std::size_t thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&start, &step, steps, thread] {
      for (std::size_t i = 0; i < steps; ++i) {
        start.arrive_and_wait();
        step(thread, i);
      }
    });
  }
}

} // namespace cardwright
