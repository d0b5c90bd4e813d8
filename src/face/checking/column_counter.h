#pragma once

#include "base/ascii.h"
#include "base/graphemes.h"

#include <algorithm>

namespace cardwright {

/// Tells the column, counted from 1 in characters, of ascending offsets, in one walk over the text.
class ColumnCounter {
 public:
  explicit ColumnCounter(TextView text) noexcept : m_text(text), m_walker(text) {}

  [[nodiscard]] std::size_t columnAt(std::size_t offset) {
    const std::size_t end = std::min(offset, m_text.size());
    std::size_t begin = m_lineBegin;
    for (; m_seen < end; ++m_seen) {
      begin = isLineTerminator(m_text[m_seen]) ? m_seen + 1 : begin;
    }
    if (begin != m_lineBegin) {
      m_lineBegin = begin;
      m_walker = GraphemeWalker(m_text.substr(begin));
      m_column = 1;
    }
    while (!m_walker.atEnd() && m_lineBegin + m_walker.position() < end) {
      m_walker.next();
      ++m_column;
    }
    return m_column;
  }

 private:
  TextView m_text;
  std::size_t m_seen = 0;
  std::size_t m_lineBegin = 0;
  GraphemeWalker m_walker;
  std::size_t m_column = 1;
};

} // namespace cardwright
