#pragma once

#include <cstdint>
#include <limits>

namespace cardwright {

// Arithmetic that ends at the largest and the smallest number instead of going beyond them.

[[nodiscard]] constexpr std::int64_t saturatingAdd(std::int64_t a, std::int64_t b) noexcept {
  std::int64_t sum = 0;
  if (!__builtin_add_overflow(a, b, &sum)) {
    return sum;
  }
  using Limits = std::numeric_limits<std::int64_t>;
  return a < 0 ? Limits::min() : Limits::max();
}

[[nodiscard]] constexpr std::int64_t saturatingMultiply(std::int64_t a, std::int64_t b) noexcept {
  std::int64_t product = 0;
  if (!__builtin_mul_overflow(a, b, &product)) {
    return product;
  }
  using Limits = std::numeric_limits<std::int64_t>;
  return (a < 0) != (b < 0) ? Limits::min() : Limits::max();
}

} // namespace cardwright
