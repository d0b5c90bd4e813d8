#pragma once

#include "cardwright/detail/change_mark.h"

#include <algorithm>
#include <cstddef>
#include <forward_list>
#include <vector>

namespace cardwright {

/// Marks that lie side by side, and never change their places. The first one, which is all that a
/// text of one card needs, takes little memory.
class ChangeMarks {
 public:
  [[nodiscard]] detail::ChangeMark& add() {
    if (m_blocks.empty() || m_used == m_blocks.front().size()) {
      constexpr std::size_t kMost = 4096;
      const std::size_t size = m_blocks.empty() ? 1 : m_blocks.front().size() * 8;
      m_blocks.emplace_front(std::min(size, kMost));
      m_used = 0;
    }
    return m_blocks.front()[m_used++];
  }

 private:
  std::forward_list<std::vector<detail::ChangeMark>> m_blocks; ///< the newest first
  std::size_t m_used = 0;                                      ///< of the newest
};

} // namespace cardwright
