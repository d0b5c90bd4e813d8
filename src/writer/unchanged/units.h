#pragma once

#include "base/ascii.h"
#include "cardwright/text.h"

#include <algorithm>
#include <cstddef>

namespace cardwright {

/// Takes units without a look at whether they fit: the line that they come from tells how many
/// there may be at most.
class Units {
 public:
  explicit Units(char16_t* units) noexcept : m_begin(units), m_end(units) {}

  void append(TextView text) noexcept {
    // Most are short, and a call takes its time.
    for (const char16_t unit : text) {
      *m_end++ = unit;
    }
  }
  void appendLong(TextView text) noexcept { m_end = std::copy(text.begin(), text.end(), m_end); }
  void appendUpper(TextView word) noexcept {
    m_end = std::transform(word.begin(), word.end(), m_end, asciiUpper);
  }
  void append(std::size_t count, char16_t unit) noexcept {
    m_end = std::fill_n(m_end, count, unit);
  }
  void push_back(char16_t unit) noexcept { *m_end++ = unit; }

  [[nodiscard]] TextView view() const noexcept {
    return {m_begin, static_cast<std::size_t>(m_end - m_begin)};
  }

 private:
  char16_t* m_begin;
  char16_t* m_end;
};

} // namespace cardwright
