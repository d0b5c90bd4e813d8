#pragma once

#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

/// Tells the physical line, counted from 1, of ascending offsets, in one walk over the text. CR LF,
/// CR and LF each end a line.
class LineCounter {
 public:
  explicit LineCounter(TextView text) noexcept : m_text(text) {}

  [[nodiscard]] std::size_t lineAt(std::size_t offset) noexcept {
    for (; m_at < offset && m_at < m_text.size(); ++m_at) {
      const bool isCrBeforeLf =
          m_text[m_at] == u'\r' && m_at + 1 < m_text.size() && m_text[m_at + 1] == u'\n';
      const bool endsLine = m_text[m_at] == u'\n' || (m_text[m_at] == u'\r' && !isCrBeforeLf);
      m_line += endsLine ? 1 : 0;
    }
    return m_line;
  }

 private:
  TextView m_text;
  std::size_t m_at = 0;
  std::size_t m_line = 1;
};

[[nodiscard]] inline std::size_t lineBreaksIn(TextView text) noexcept {
  return LineCounter(text).lineAt(text.size()) - 1;
}

} // namespace cardwright
