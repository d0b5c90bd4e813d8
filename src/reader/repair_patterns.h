#pragma once

#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

// The two patterns of line repair, matched by hand: a backtracking engine needs minutes for some
// lines of a hundred letters. Both look at each unit a fixed number of times over all matches.

/// Text of the patterns, in ICU's syntax.
inline constexpr TextView kNumericEntityPattern = u"&#(?:(?:x|X)([0-9A-Fa-f]+)|([0-9]+));";
inline constexpr TextView kPropertyBoundaryPattern =
    u"(?i)(?:^|[;\\r\\n]\\s*)((?:[A-Z0-9_-]+\\.)?[A-Z0-9_-]+(?:;[^:\\r\\n]*)?:)";

/// A match of kNumericEntityPattern, from "&" to ";".
struct NumericEntity {
  std::size_t begin;
  std::size_t end;
  TextView digits;
  bool isHexadecimal;
};

/// Finds the first match at or behind `from`.
[[nodiscard]] bool findNumericEntity(TextView text, std::size_t from,
                                     NumericEntity& entity) noexcept;

/// A match of kPropertyBoundaryPattern.
struct PropertyBoundary {
  std::size_t begin;
  std::size_t headerBegin; ///< where the first group begins: the header without what is before it
  std::size_t end;         ///< behind the header's colon
};

/// Finds the matches one after the other.
class PropertyBoundaryFinder {
 public:
  explicit PropertyBoundaryFinder(TextView text) noexcept : m_text(text) {}

  [[nodiscard]] bool next(PropertyBoundary& boundary) noexcept;

 private:
  [[nodiscard]] std::size_t endOfHeader(std::size_t begin) noexcept;
  [[nodiscard]] std::size_t endOfName(std::size_t begin) const noexcept;

  TextView m_text;
  std::size_t m_from = 0;
  /// The first ":", CR or LF behind the parameters that were looked at last.
  std::size_t m_parametersEnd = 0;
};

} // namespace cardwright
