#pragma once

#include "cardwright/text.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace cardwright {

/// A set of Unicode code points. A UTF-16 code unit counts as the code point of its number, so a
/// surrogate is a member only when it was put in as such.
///
/// Sets do not change once they are made, and may be used from several threads at once.
class [[gnu::visibility("default")]] CharacterSet {
 public:
  /// Code points from `first` to `last`, both included.
  struct Range {
    char32_t first; ///< the lowest
    char32_t last;  ///< the highest
  };

  /// The empty set.
  CharacterSet() = default;
  /// All code points of all ranges.
  CharacterSet(std::initializer_list<Range> ranges);
  /// The code units of a text.
  [[nodiscard]] static CharacterSet fromCharacters(TextView characters);

  /// Whether the code point, or the code unit of that number, is a member.
  [[nodiscard]] bool contains(char32_t codePoint) const noexcept {
    return codePoint < 128 ? ((m_ascii[codePoint / 64] >> (codePoint % 64)) & 1U) != 0
                           : isInRanges(codePoint);
  }

  /// Everything that this set does not hold, up to U+10FFFF.
  [[nodiscard]] CharacterSet inverted() const;

 private:
  [[gnu::visibility("hidden")]] void add(std::vector<Range> ranges);
  [[nodiscard]] bool isInRanges(char32_t codePoint) const noexcept;

  std::array<std::uint64_t, 2> m_ascii{};
  std::vector<Range> m_ranges; ///< sorted, without overlaps, ASCII included
};

} // namespace cardwright
