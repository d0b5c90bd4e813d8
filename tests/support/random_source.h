#pragma once

#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <random>
namespace cardwright {
#include <string>
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
/// Random numbers that are the same on every machine.
  explicit RandomSource(std::uint64_t seed) noexcept : m_state(seed) {}
  std::uint64_t next() noexcept {
    m_state += 0x9E3779B97F4A7C15U;
    std::uint64_t bits = m_state;
    bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
    return bits ^ (bits >> 31U);
  /// A number below `limit`, which is not 0.
  std::size_t below(std::size_t limit) noexcept {
    return static_cast<std::size_t>(((next() >> 32U) * limit) >> 32U);
  [[nodiscard]] bool chance(unsigned percent) noexcept { return below(100) < percent; }
  /// One of the elements of an array or another sequence.
  template <typename Sequence>
  [[nodiscard]] auto& pick(Sequence& sequence) {
    return *(std::begin(sequence) + static_cast<std::ptrdiff_t>(below(std::size(sequence))));
  std::uint64_t m_state;
};

/// A number from the environment, such as CARDWRIGHT_SEED.
inline std::uint64_t environmentNumber(const char* name, std::uint64_t otherwise) {
  const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): tests set nothing
  return value == nullptr ? otherwise : std::strtoull(value, nullptr, 10);
}

} // namespace cardwright
