#pragma once

#include "base/case.h"
#include "cardwright/text.h"
#include "cleaner/line_predicates.h"

namespace cardwright {

/// A logical line taken apart: header, value, and the upper-cased name in the header. Borrows the
/// line.
class LineName {
 public:
  explicit LineName(TextView line)
      : m_line(line),
        m_colon(firstUnquotedColon(line)),
        m_upper(isPresent() ? propertyNameIn(line.substr(0, m_colon)) : TextView()) {}

  /// Whether the line has a colon outside quotes, and so a name, be it an empty one.
  [[nodiscard]] bool isPresent() const noexcept { return m_colon != kNoColon; }
  /// Empty when there is none.
  [[nodiscard]] TextView view() const noexcept { return m_upper.view(); }

  /// For lines that have a name.
  [[nodiscard]] std::size_t colon() const noexcept { return m_colon; }
  [[nodiscard]] TextView header() const noexcept { return m_line.substr(0, m_colon); }
  [[nodiscard]] TextView value() const noexcept { return m_line.substr(m_colon + 1); }

 private:
  TextView m_line;
  std::size_t m_colon;
  UpperCasedName m_upper;
};

} // namespace cardwright
