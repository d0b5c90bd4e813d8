#pragma once

#include "cardwright/detail/text_storage.h"

#include <cstddef>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace cardwright::detail {

/// A dictionary from text to Value for the handful of keys that a card or a property has: a
/// vector that is searched from the front, with an index beside it once it has grown long, so
/// that hundreds of thousands of keys cost little more each. The index is ordered, not hashed:
/// names come from files, and no file may choose names that all share a hash. The order of entries
/// means nothing.
template <typename Value>
class KeyedList {
 public:
  /// So many entries are searched from the front.
  static constexpr std::size_t kLinearLimit = 24;

  struct Entry {
    TextStorage key;
    Value value;
  };

  [[nodiscard]] const std::vector<Entry>& entries() const noexcept { return m_entries; }
  [[nodiscard]] bool empty() const noexcept { return m_entries.empty(); }
  [[nodiscard]] std::size_t size() const noexcept { return m_entries.size(); }

  void reserve(std::size_t count) { m_entries.reserve(count); }

  /// The value stored under exactly this key, or null. Valid until the list changes.
  [[nodiscard]] const Value* find(TextView key) const {
    const std::size_t position = positionOf(key);
    return position < m_entries.size() ? &m_entries[position].value : nullptr;
  }
  [[nodiscard]] Value* find(TextView key) {
    const std::size_t position = positionOf(key);
    return position < m_entries.size() ? &m_entries[position].value : nullptr;
  }

  /// Adds an entry for a key that is not there yet.
  Value& add(TextStorage key, Value value) {
    m_entries.push_back({std::move(key), std::move(value)});
    if (m_index) {
      m_index->emplace(m_entries.back().key.view(), m_entries.size() - 1);
    } else if (m_entries.size() > kLinearLimit) {
      buildIndex();
    }
    return m_entries.back().value;
  }

  /// Removes the entry of this key; false when there is none. The last entry takes its place.
  bool remove(TextView key) {
    const std::size_t position = positionOf(key);
    if (position >= m_entries.size()) {
      return false;
    }
    if (m_index) {
      m_index->erase(m_entries[position].key.view());
    }
    if (position + 1 != m_entries.size()) {
      m_entries[position] = std::move(m_entries.back());
      if (m_index) {
        (*m_index)[m_entries[position].key.view()] = position;
      }
    }
    m_entries.pop_back();
    return true;
  }

 private:
  using Index = std::map<TextView, std::size_t>;

  [[nodiscard]] std::size_t positionOf(TextView key) const {
    if (m_index) {
      const auto found = m_index->find(key);
      return found == m_index->end() ? m_entries.size() : found->second;
    }
    std::size_t position = 0;
    while (position < m_entries.size() && m_entries[position].key.view() != key) {
      ++position;
    }
    return position;
  }

  void buildIndex() {
    m_index = std::make_unique<Index>();
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
      m_index->emplace(m_entries[i].key.view(), i);
    }
  }

  std::vector<Entry> m_entries;
  /// Views of the entries' own keys, which do not move when the vector grows.
  std::unique_ptr<Index> m_index;
};

} // namespace cardwright::detail
