#pragma once

#include "support/kept_memory.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iostream>

namespace cardwright {

/// Expects that work on an input of double size takes about double the time. Quadratic work takes
/// four times as long. Under sanitizers it is only run, on a small input.
/// @param make makes the input of a size; its time does not count
/// @param work is what is timed
template <typename Make, typename Work>
void expectDoubleTimeAtMost(std::size_t size, Make make, Work work) {
  if (!kTimesAreMeaningful) {
    work(make(size / 20));
    return;
  }
  constexpr double kLimit = 2.3;
  keepMemory();
  const auto once = make(size);
  const auto twice = make(size * 2);
  const double ratio = growthBetween([&] { work(once); }, [&] { work(twice); }, kLimit);
  std::cout << size << " and its double: ratio " << ratio << "\n";
  EXPECT_LT(ratio, kLimit);
}

} // namespace cardwright
