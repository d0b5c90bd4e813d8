#pragma once

#include "cardwright/text.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace cardwright {

/// A fixed set of upper-case ASCII names, kept in their declared order. Membership costs one hash
/// of a few characters and one comparison: the multiplier was searched for so that no two names
/// share a slot.
template <std::size_t Count, unsigned SlotBits>
class NameSet {
 public:
  constexpr NameSet(const std::array<TextView, Count>& names, std::uint64_t multiplier)
      : m_names(names), m_multiplier(multiplier) {
    for (std::size_t i = 0; i < Count; ++i) {
      std::uint8_t& slot = m_slots[slotOf(names[i])];
      m_isPerfect = m_isPerfect && slot == 0;
      slot = static_cast<std::uint8_t>(i + 1);
    }
  }

  [[nodiscard]] constexpr const std::array<TextView, Count>& names() const noexcept {
    return m_names;
  }
  /// Whether every name has a slot of its own.
  [[nodiscard]] constexpr bool isPerfect() const noexcept { return m_isPerfect; }

  [[nodiscard]] constexpr bool contains(TextView name) const noexcept {
    if (name.empty()) {
      return false;
    }
    const std::uint8_t slot = m_slots[slotOf(name)];
    return slot != 0 && m_names[slot - 1U] == name;
  }

 private:
  static_assert(Count < 256, "a slot holds the number of a name in one byte");

  [[nodiscard]] constexpr std::size_t slotOf(TextView name) const noexcept {
    const std::size_t size = name.size();
    std::uint64_t key = size & 0xFFU;
    unsigned shift = 8;
    for (const std::size_t at : {std::size_t{0}, size / 4, size / 2, size * 3 / 4, size - 1}) {
      key |= static_cast<std::uint64_t>(name[at] & 0xFFU) << shift;
      shift += 8;
    }
    return static_cast<std::size_t>((key * m_multiplier) >> (64U - SlotBits));
  }

  std::array<TextView, Count> m_names;
  std::array<std::uint8_t, std::size_t{1} << SlotBits> m_slots{};
  std::uint64_t m_multiplier;
  bool m_isPerfect = true;
};

} // namespace cardwright
