#pragma once

#include "cardwright/detail/keyed_list.h"
#include "cardwright/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace cardwright {

/// Names of properties have ranks: VERSION, PRODID, FN, N, ORG, TITLE, EMAIL, TEL and ADR come
/// first, all others share the last one.
[[nodiscard]] int propertyRank(TextView name) noexcept;

/// The same for names of parameters: VALUE, ENCODING and TYPE come first.
[[nodiscard]] int parameterRank(TextView name) noexcept;

/// The first twelve units of a key as numbers that compare like them. Where they differ, the key
/// itself, which may lie anywhere in memory, is not asked.
using KeyHead = std::array<std::uint64_t, 3>;

[[nodiscard]] KeyHead keyHead(TextView key) noexcept;

/// An entry of a dictionary with what decides its place.
template <typename Value>
struct RankedEntry {
  int rank;
  KeyHead head;
  TextView key;
  const Value* value;

  friend bool operator<(const RankedEntry& a, const RankedEntry& b) noexcept {
    if (a.rank != b.rank) {
      return a.rank < b.rank;
    }
    return a.head != b.head ? a.head < b.head : a.key < b.key;
  }
};

inline constexpr std::size_t kFewEntries = 32;

/// The entries of a dictionary as they are written: by rank, then by the code units of their keys.
template <typename Value>
[[nodiscard]] std::vector<RankedEntry<Value>> inWrittenOrder(const detail::KeyedList<Value>& list,
                                                             int (*rankOf)(TextView)) {
  std::vector<RankedEntry<Value>> ranked;
  ranked.reserve(list.size());
  for (const auto& entry : list.entries()) {
    const TextView key = entry.key.view();
    ranked.push_back({rankOf(key), keyHead(key), key, &entry.value});
  }
  if (ranked.size() > kFewEntries) {
    // By merging: names with ascending numbers, as devices and hostile files have them, make a
    // quicksort compare several times as often.
    std::stable_sort(ranked.begin(), ranked.end());
    return ranked;
  }
  for (std::size_t i = 1; i < ranked.size(); ++i) {
    // Merging would allocate, which costs more than putting a few into their places.
    const auto place = ranked.begin() + static_cast<std::ptrdiff_t>(i);
    std::rotate(std::upper_bound(ranked.begin(), place, *place), place, place + 1);
  }
  return ranked;
}

/// Only the keys.
template <typename Value>
[[nodiscard]] TextList keysInWrittenOrder(const detail::KeyedList<Value>& list,
                                          int (*rankOf)(TextView)) {
  TextList keys;
  keys.reserve(list.size());
  for (const auto& entry : inWrittenOrder(list, rankOf)) {
    keys.emplace_back(entry.key);
  }
  return keys;
}

} // namespace cardwright
