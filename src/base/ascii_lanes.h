#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace cardwright {

// Runs of ASCII, copied between bytes and code units a block at a time. The loops of fixed length
// are there for the compiler, which turns them into vector instructions.

inline constexpr std::size_t kAsciiBlock = 16;

/// Widens bytes as long as they are ASCII.
/// @param count bytes to read at most, for which `output` has room
/// @returns how many were widened
[[nodiscard]] inline std::size_t widenAscii(const char* bytes, std::size_t count,
                                            char16_t* output) noexcept {
  constexpr std::uint64_t kHighBits = 0x8080808080808080U;
  std::size_t done = 0;
  for (; count - done >= kAsciiBlock; done += kAsciiBlock) {
    std::uint64_t halves[2]; // NOLINT: filled at once
    std::memcpy(halves, bytes + done, sizeof halves);
    if (((halves[0] | halves[1]) & kHighBits) != 0) {
      break;
    }
    // A copy of its own cannot overlap the output, as far as the compiler knows.
    unsigned char block[kAsciiBlock]; // NOLINT: filled at once
    std::memcpy(block, bytes + done, sizeof block);
    for (std::size_t i = 0; i < kAsciiBlock; ++i) {
      output[done + i] = block[i];
    }
  }
  for (; done < count && static_cast<unsigned char>(bytes[done]) < 0x80; ++done) {
    output[done] = static_cast<unsigned char>(bytes[done]);
  }
  return done;
}

/// Narrows code units as long as they are ASCII; the counterpart of widenAscii.
[[nodiscard]] inline std::size_t narrowAscii(const char16_t* units, std::size_t count,
                                             char* output) noexcept {
  std::size_t done = 0;
  for (; count - done >= kAsciiBlock; done += kAsciiBlock) {
    unsigned all = 0;
    for (std::size_t i = 0; i < kAsciiBlock; ++i) {
      all |= units[done + i];
    }
    if (all >= 0x80) {
      break;
    }
    for (std::size_t i = 0; i < kAsciiBlock; ++i) {
      output[done + i] = static_cast<char>(units[done + i]);
    }
  }
  for (; done < count && units[done] < 0x80; ++done) {
    output[done] = static_cast<char>(units[done]);
  }
  return done;
}

} // namespace cardwright
