#pragma once

#include "cardwright/detail/keyed_list.h"
#include "cardwright/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace cardwright {

namespace detail {

struct Rank {
  TextView name;
  int rank;
};

inline constexpr Rank kPropertyRanks[] = {
    {u"VERSION", -9}, {u"PRODID", -8}, {u"FN", -7},  {u"N", -6},   {u"ORG", -5},
    {u"TITLE", -4},   {u"EMAIL", -3},  {u"TEL", -2}, {u"ADR", -1},
};

inline constexpr Rank kParameterRanks[] = {
    {u"VALUE", -3},
    {u"ENCODING", -2},
    {u"TYPE", -1},
};

template <std::size_t N>
[[nodiscard]] constexpr int rankOf(const Rank (&ranks)[N], TextView name) noexcept {
  for (const Rank& rank : ranks) {
    if (rank.name.size() == name.size() && rank.name.front() == name.front() && rank.name == name) {
      return rank.rank;
    }
  }
  return 0;
}

} // namespace detail

/// Names of properties have ranks: VERSION, PRODID, FN, N, ORG, TITLE, EMAIL, TEL and ADR come
/// first, all others share the last one.
[[nodiscard]] constexpr int propertyRank(TextView name) noexcept {
  return detail::rankOf(detail::kPropertyRanks, name);
}

/// The same for names of parameters: VALUE, ENCODING and TYPE come first.
[[nodiscard]] constexpr int parameterRank(TextView name) noexcept {
  return detail::rankOf(detail::kParameterRanks, name);
}

namespace detail {

inline constexpr unsigned kOrderByteBits = 8;
inline constexpr std::size_t kFirstOrderUnits = 7;

/// So many units of a key from `at` on, a byte each. Nothing behind a unit beyond ASCII counts.
[[nodiscard]] constexpr std::uint64_t orderBytesOf(TextView key, std::size_t at,
                                                   std::size_t count) noexcept {
  constexpr char16_t kBeyondAscii = 0x80;
  std::uint64_t bytes = 0;
  std::size_t taken = 0;
  for (; taken < count && at + taken < key.size(); ++taken) {
    const char16_t unit = key[at + taken];
    bytes = bytes << kOrderByteBits | std::min(unit, kBeyondAscii);
    if (unit >= kBeyondAscii) {
      ++taken;
      break;
    }
  }
  return taken == 0 ? 0 : bytes << (count - taken) * kOrderByteBits;
}

} // namespace detail

/// A rank and the first seven units of a key as one number that compares like them, rank first.
/// The first unit beyond ASCII ends it, so equal numbers say nothing.
[[nodiscard]] constexpr std::uint64_t orderOf(int rank, TextView key) noexcept {
  constexpr int kNoRank = 0x7F;
  return static_cast<std::uint64_t>(kNoRank + rank)
             << detail::kFirstOrderUnits * detail::kOrderByteBits |
         detail::orderBytesOf(key, 0, detail::kFirstOrderUnits);
}

/// The next sixteen units of a key likewise. Where these differ, the key itself, which may lie
/// anywhere in memory, is not asked.
[[nodiscard]] std::array<std::uint64_t, 2> furtherOrderOf(TextView key) noexcept;

/// An entry of a dictionary with what decides its place.
template <typename Value>
struct RankedEntry {
  std::uint64_t order;
  TextView key;
  const Value* value;
};

/// The entries of a dictionary as they are written: by rank, then by the code units of their keys.
/// A few, as most cards and properties have, are put in order without an allocation.
template <typename Value>
class WrittenOrder {
 public:
  using Entry = RankedEntry<Value>;

  WrittenOrder(const detail::KeyedList<Value>& list, int (*rankOf)(TextView)) {
    const auto& entries = list.entries();
    if (entries.size() > m_few.size()) {
      orderMany(entries, rankOf);
      return;
    }
    for (const auto& entry : entries) {
      m_few[m_count] = rankedEntry(entry, rankOf);
      std::size_t place = m_count;
      for (; place > 0 && isBefore(m_few[m_count], m_few[m_places[place - 1]]); --place) {
        m_places[place] = m_places[place - 1];
      }
      m_places[place] = static_cast<std::uint8_t>(m_count);
      ++m_count;
    }
  }

  [[nodiscard]] std::size_t size() const noexcept {
    return m_many.empty() ? m_count : m_many.size();
  }
  /// The entry that is written at this place.
  [[nodiscard]] const Entry& operator[](std::size_t place) const noexcept {
    return m_many.empty() ? m_few[m_places[place]] : m_many[place];
  }

 private:
  static Entry rankedEntry(const typename detail::KeyedList<Value>::Entry& entry,
                           int (*rankOf)(TextView)) {
    const TextView key = entry.key.view();
    return {orderOf(rankOf(key), key), key, &entry.value};
  }

  static bool isBefore(const Entry& a, const Entry& b) noexcept {
    return a.order != b.order ? a.order < b.order : a.key < b.key;
  }

  void orderMany(const std::vector<typename detail::KeyedList<Value>::Entry>& entries,
                 int (*rankOf)(TextView)) {
    struct Candidate {
      Entry entry;
      std::array<std::uint64_t, 2> further;
    };
    std::vector<Candidate> candidates;
    candidates.reserve(entries.size());
    for (const auto& entry : entries) {
      candidates.push_back({rankedEntry(entry, rankOf), furtherOrderOf(entry.key.view())});
    }
    // By merging: names with ascending numbers, as devices and hostile files have them, make a
    // quicksort compare several times as often.
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& a, const Candidate& b) {
                       return a.entry.order == b.entry.order && a.further != b.further
                                  ? a.further < b.further
                                  : isBefore(a.entry, b.entry);
                     });
    m_many.reserve(candidates.size());
    for (const Candidate& candidate : candidates) {
      m_many.push_back(candidate.entry);
    }
  }

  static constexpr std::size_t kFew = 32;

  std::array<Entry, kFew> m_few;           // NOLINT: filled as far as m_count tells
  std::array<std::uint8_t, kFew> m_places; // NOLINT: filled likewise; numbers of the few in order
  std::size_t m_count = 0;
  std::vector<Entry> m_many;
};

/// Only the keys.
template <typename Value>
[[nodiscard]] TextList keysInWrittenOrder(const detail::KeyedList<Value>& list,
                                          int (*rankOf)(TextView)) {
  const WrittenOrder<Value> order(list, rankOf);
  TextList keys;
  keys.reserve(order.size());
  for (std::size_t place = 0; place < order.size(); ++place) {
    keys.emplace_back(order[place].key);
  }
  return keys;
}

} // namespace cardwright
