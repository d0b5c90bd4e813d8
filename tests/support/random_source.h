#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>

namespace cardwright {

/// Random choices that are the same on every machine for one seed.
class RandomSource {
 public:
  explicit RandomSource(std::uint64_t seed) noexcept : m_state(seed) {}

  std::uint64_t next() noexcept {
    m_state += 0x9E3779B97F4A7C15U;
    std::uint64_t bits = m_state;
    bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
    return bits ^ (bits >> 31U);
  }

  /// A number below `limit`, which is neither 0 nor above 32 bits.
  std::size_t below(std::size_t limit) noexcept {
    return static_cast<std::size_t>(((next() >> 32U) * limit) >> 32U);
  }
  /// True once in `n`.
  bool oneIn(std::size_t n) noexcept { return below(n) == 0; }
  /// True so many times in a hundred.
  bool chance(unsigned percent) noexcept { return below(100) < percent; }

  /// One of the elements of an array or another sequence.
  template <typename Sequence>
  [[nodiscard]] auto& pick(Sequence& sequence) {
    return *(std::begin(sequence) + static_cast<std::ptrdiff_t>(below(std::size(sequence))));
  }
  template <typename Sequence>
  [[nodiscard]] const auto& oneOf(const Sequence& sequence) {
    return pick(sequence);
  }

 private:
  std::uint64_t m_state;
};

/// A number from the environment, such as CARDWRIGHT_LINES.
inline std::uint64_t environmentNumber(const char* name, std::uint64_t otherwise) {
  const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): tests set nothing
  return value == nullptr ? otherwise : std::strtoull(value, nullptr, 10);
}

} // namespace cardwright
