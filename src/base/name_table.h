#pragma once

#include "base/ascii.h"
#include "base/case.h"
#include "cardwright/text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace cardwright {

/// One row of a NameTable.
template <typename Value>
struct NameRow {
  TextView name;
  Value value;
};

/// A read-only dictionary from ASCII names to values, hashed by the compiler.
template <typename Value, std::size_t N>
class NameTable {
 public:
  using Row = NameRow<Value>;

  constexpr explicit NameTable(const Row (&rows)[N]) {
    std::copy(std::begin(rows), std::end(rows), m_rows.begin());
    m_slots.fill(kEmpty);
    for (std::size_t i = 0; i < N; ++i) {
      std::size_t slot = hash(m_rows[i].name) & kMask;
      while (m_slots[slot] != kEmpty) {
        slot = (slot + 1) & kMask;
      }
      m_slots[slot] = static_cast<std::uint16_t>(i);
    }
  }

  [[nodiscard]] constexpr const std::array<Row, N>& rows() const noexcept { return m_rows; }

  /// The row of exactly this name, or null.
  [[nodiscard]] constexpr const Row* find(TextView name) const noexcept {
    return probe(name, [](TextView a, TextView b) { return a == b; });
  }

  /// The row whose name equals this one without regard to the case of ASCII letters, or null.
  [[nodiscard]] constexpr const Row* findAsciiIgnoringCase(TextView name) const noexcept {
    return probe(name, equalAsciiIgnoringCase);
  }

  /// The row whose name equals this one without regard to case, or null.
  [[nodiscard]] const Row* findIgnoringCase(TextView name) const {
    if (name.size() > kLongestName) {
      return nullptr; // No character folds to fewer units.
    }
    if (const Row* row = probe(name, equalAsciiIgnoringCase)) {
      return row;
    }
    if (std::all_of(name.begin(), name.end(), isAscii)) {
      return nullptr;
    }
    // Some letters outside ASCII fold to ASCII ones.
    const auto row = std::find_if(m_rows.begin(), m_rows.end(), [name](const Row& candidate) {
      return equalIgnoringCase(candidate.name, name);
    });
    return row == m_rows.end() ? nullptr : &*row;
  }

 private:
  static constexpr std::size_t kSize = std::bit_ceil(N * 2);
  static constexpr std::size_t kMask = kSize - 1;
  static constexpr std::uint16_t kEmpty = 0xFFFF;

  static constexpr std::size_t hash(TextView name) noexcept {
    auto h = static_cast<std::uint32_t>(name.size());
    for (const char16_t unit : name) {
      h = (h ^ asciiUpper(unit)) * 0x01000193U;
    }
    return h ^ (h >> 15U);
  }

  template <typename Equal>
  constexpr const Row* probe(TextView name, Equal equal) const noexcept {
    if (name.size() > kLongestName) {
      return nullptr;
    }
    for (std::size_t slot = hash(name) & kMask; m_slots[slot] != kEmpty;
         slot = (slot + 1) & kMask) {
      const Row& row = m_rows[m_slots[slot]];
      if (equal(row.name, name)) {
        return &row;
      }
    }
    return nullptr;
  }

  static constexpr std::size_t kLongestName = 64;

  std::array<Row, N> m_rows{};
  std::array<std::uint16_t, kSize> m_slots{};
};

} // namespace cardwright
