#pragma once

#include "cardwright/text.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <vector>

namespace cardwright {

inline std::uint64_t mixedBits(std::uint64_t word) {
  return word ^ (word >> 47U);
}

/// Texts of eight units that all have the same std::hash where the library hashes by MurmurHash:
/// the second word of each cancels what the first one did to the state.
inline std::vector<Text> collidingTexts(std::size_t count) {
  constexpr std::uint64_t kFactor = 0xC6A4A7935BD1E995U;
  constexpr std::uint64_t kStart = 0xC70F6907U ^ (16 * kFactor);
  std::uint64_t inverse = kFactor;
  for (int i = 0; i < 5; ++i) {
    inverse *= 2 - kFactor * inverse;
  }
  std::vector<Text> texts;
  for (std::uint64_t first = 0; first < count; ++first) {
    const std::uint64_t state = (kStart ^ (mixedBits(first * kFactor) * kFactor)) * kFactor;
    const std::uint64_t second = mixedBits(state * inverse) * inverse;
    Text& text = texts.emplace_back(8, u'\0');
    std::memcpy(text.data(), &first, sizeof(first));
    std::memcpy(text.data() + 4, &second, sizeof(second));
  }
#if defined(__GLIBCXX__)
  EXPECT_EQ(std::hash<TextView>()(texts.front()), std::hash<TextView>()(texts.back()));
#endif
  return texts;
}

} // namespace cardwright
