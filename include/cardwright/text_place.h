#pragma once

#include <cstddef>

namespace cardwright {

/// Where something stands in a text.
struct TextPlace {
  std::size_t offset = 0; ///< UTF-16 code units from the start of the decoded text
  std::size_t line = 1;   ///< physical line, counted from 1; CR LF, CR and LF each end one

  /// Whether both are the same place.
  friend bool operator==(const TextPlace&, const TextPlace&) = default;
};

} // namespace cardwright
