#pragma once

#include <cstddef>
#include <cstdint>

namespace cardwright {

/// Which bytes of a block, and of two behind it, are of a kind: one bit each, the first one lowest.
using Utf8Bits = std::uint64_t;

/// Tells the characters in a block of UTF-8 from what comparisons of its bytes found.
template <std::size_t kBytes>
struct Utf8Block {
  Utf8Bits beyondAscii;
  Utf8Bits leads;          ///< from 0xC0 on
  Utf8Bits leadsOfTriples; ///< from 0xE0 on
  Utf8Bits unknown;        ///< what begins nothing, and characters of four bytes
  Utf8Bits pending;        ///< what goes on with a character of the block before

  /// The bytes before the first unknown one.
  [[nodiscard]] constexpr Utf8Bits whole() const noexcept {
    constexpr Utf8Bits kAll = (Utf8Bits{1} << kBytes) - 1;
    return (firstUnknown() - 1U) & kAll;
  }
  /// Those of them that begin characters.
  [[nodiscard]] constexpr Utf8Bits kept() const noexcept { return whole() & ~continuations(); }
  /// Where characters have to go on.
  [[nodiscard]] constexpr Utf8Bits expected() const noexcept {
    return (leads << 1U) | (leadsOfTriples << 2U) | pending;
  }
  /// Whether there is anything before the unknown, and it goes on where it has to and only there.
  [[nodiscard]] constexpr bool isSound() const noexcept {
    // What stands at the unknown must not be missing to the character before it.
    return whole() != 0 && ((continuations() ^ expected()) & (whole() | firstUnknown())) == 0;
  }
  /// Which bytes of the next block go on with the last character.
  [[nodiscard]] constexpr Utf8Bits nextPending() const noexcept { return expected() >> kBytes; }
  /// How many bytes of that character this block has.
  [[nodiscard]] constexpr std::size_t tail() const noexcept {
    constexpr Utf8Bits kLastButOne = Utf8Bits{1} << (kBytes - 2);
    return nextPending() == 0 ? 0 : (leadsOfTriples & kLastButOne) != 0 ? 2 : 1;
  }

 private:
  [[nodiscard]] constexpr Utf8Bits firstUnknown() const noexcept {
    return unknown & (0U - unknown);
  }
  [[nodiscard]] constexpr Utf8Bits continuations() const noexcept { return beyondAscii & ~leads; }
};

} // namespace cardwright
