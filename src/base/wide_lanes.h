#pragma once

// Vectors of 64 bytes, for processors that can also pack the bytes of one and look up bytes in
// tables (AVX-512 with its byte operations). Functions that use them are marked CARDWRIGHT_WIDE,
// and called only where usesWideLanes says so; elsewhere there is no such mark. Include this in the
// source files of such functions only.

#if defined(__x86_64__) && defined(__GNUC__)
#define CARDWRIGHT_WIDE                                                                            \
  __attribute__((target("avx512f,avx512bw,avx512vl,avx512vbmi,avx512vbmi2,bmi,bmi2,popcnt")))
#endif

#ifdef CARDWRIGHT_WIDE

#include <array>
#include <cstddef>
#include <cstdint>
#include <immintrin.h>

namespace cardwright {

/// So many of the lowest bits, one for each lane.
[[nodiscard]] CARDWRIGHT_WIDE inline std::uint64_t lowBits(std::size_t count) noexcept {
  return _bzhi_u64(~std::uint64_t{0}, static_cast<unsigned>(count));
}

/// A byte for each character of ASCII.
using AsciiTable = std::array<std::uint8_t, 128>;

/// Looks up bytes; the highest bit of each does not count.
[[nodiscard]] CARDWRIGHT_WIDE inline __m512i lookUp(const AsciiTable& table,
                                                    __m512i bytes) noexcept {
  return _mm512_permutex2var_epi8(_mm512_loadu_si512(table.data()), bytes,
                                  _mm512_loadu_si512(table.data() + table.size() / 2));
}

/// Up to 64 units as bytes: what is beyond a byte becomes 0xFF. Zeros stand behind them.
[[nodiscard]] CARDWRIGHT_WIDE inline __m512i narrowed(const char16_t* units,
                                                      std::size_t count) noexcept {
  constexpr std::size_t kHalf = 32;
  const std::uint64_t used = lowBits(count);
  const char16_t* const further = units + (count < kHalf ? count : kHalf);
  const __m512i first = _mm512_maskz_loadu_epi16(static_cast<__mmask32>(used), units);
  const __m512i second = _mm512_maskz_loadu_epi16(static_cast<__mmask32>(used >> kHalf), further);
  return _mm512_inserti64x4(_mm512_castsi256_si512(_mm512_cvtusepi16_epi8(first)),
                            _mm512_cvtusepi16_epi8(second), 1);
}

} // namespace cardwright

#endif
