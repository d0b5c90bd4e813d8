#pragma once

#include "cardwright/detail/text_storage.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace cardwright::detail {

/// Texts in order. The first one, which is mostly the only one, needs no memory beside the object.
class TextSequence {
 public:
  [[nodiscard]] bool empty() const noexcept { return !m_first.isPresent(); }
  [[nodiscard]] std::size_t size() const noexcept { return empty() ? 0 : 1 + m_others.size(); }
  [[nodiscard]] const TextStorage& operator[](std::size_t index) const noexcept {
    return index == 0 ? m_first : m_others[index - 1];
  }

  /// The text is present.
  void push_back(TextStorage text) {
    if (empty()) {
      m_first = std::move(text);
    } else {
      m_others.push_back(std::move(text));
    }
  }

  /// Appends what another one holds.
  void take(TextSequence other) {
    if (!other.empty()) {
      push_back(std::move(other.m_first));
      for (TextStorage& text : other.m_others) {
        push_back(std::move(text));
      }
    }
  }

 private:
  TextStorage m_first; ///< absent when there is none
  std::vector<TextStorage> m_others;
};

} // namespace cardwright::detail
