#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

namespace cardwright {

/// Random choices that are the same everywhere for one seed.
class RandomSource {
 public:
  explicit RandomSource(std::uint64_t seed) : m_engine(seed) {}

  /// A number below `bound`.
  std::size_t below(std::size_t bound) { return static_cast<std::size_t>(m_engine() % bound); }
  /// True once in `n`.
  bool oneIn(std::size_t n) { return below(n) == 0; }

  template <typename Items>
  const auto& oneOf(const Items& items) {
    return std::data(items)[below(std::size(items))];
  }

 private:
  std::mt19937_64 m_engine;
};

} // namespace cardwright
