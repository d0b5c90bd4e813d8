#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <vector>

namespace cardwright {

/// Looks for a part in a text that is handed over unit by unit, in time linear in both together.
/// The search of the standard library takes the product for repetitions such as "aab" in "aaaa".
class TextMatcher {
 public:
  /// @param part not empty, and borrowed
  explicit TextMatcher(TextView part) : m_part(part), m_borders(part.size()) {
    for (std::size_t i = 1; i < part.size(); ++i) {
      m_borders[i] = advanced(m_borders[i - 1], part[i]);
    }
  }

  /// Takes the next unit; true when the part ends with it.
  bool take(char16_t unit) {
    m_matched = advanced(m_matched == m_part.size() ? m_borders.back() : m_matched, unit);
    return m_matched == m_part.size();
  }

 private:
  [[nodiscard]] std::size_t advanced(std::size_t matched, char16_t unit) const {
    while (matched > 0 && m_part[matched] != unit) {
      matched = m_borders[matched - 1];
    }
    return m_part[matched] == unit ? matched + 1 : 0;
  }

  TextView m_part;
  /// At i: length of the longest proper prefix of the first i + 1 units that also ends them.
  std::vector<std::size_t> m_borders;
  std::size_t m_matched = 0; ///< how much of the part the units so far end with
};

} // namespace cardwright
