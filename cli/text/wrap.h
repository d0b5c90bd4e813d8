#pragma once

#include "text/display_width.h"

#include <cardwright/text.h>

#include <cstddef>
#include <vector>

struct UBreakIterator;

namespace cardwright::tool {

/// Breaks lines of text where a reader expects it, in any script (Unicode Standard Annex 14).
class LineWrapper {
 public:
  explicit LineWrapper(DisplayWidth& width) noexcept : m_width(width) {}
  LineWrapper(const LineWrapper&) = delete;
  LineWrapper& operator=(const LineWrapper&) = delete;
  ~LineWrapper();

  /// Cuts a line into pieces of at most a number of columns, without the blanks at their ends. A
  /// word that is longer keeps its piece: an address that is cut cannot be clicked or copied.
  [[nodiscard]] std::vector<TextView> wrap(TextView line, std::size_t columns);

 private:
  DisplayWidth& m_width;
  UBreakIterator* m_lines = nullptr; ///< made when the first line needs it
};

} // namespace cardwright::tool
