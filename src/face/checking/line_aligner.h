#pragma once

#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

/// Finds the units of logical lines again in the text that they come from, past folds, soft breaks,
/// numeric references and what a repair left out between the pieces of a line. Walks along the text
/// once.
class LineAligner {
 public:
  /// @param begin where the first physical line begins
  LineAligner(TextView text, std::size_t begin) noexcept
      : m_text(text), m_begin(begin), m_at(begin) {}

  /// Goes on with a line, or with the next piece of one. It must live as long as it is asked for.
  void setLine(TextView line) noexcept;

  /// @param position not before that of the last call
  /// @returns where the unit stands in the text; the beginning where it cannot be found
  [[nodiscard]] std::size_t placeOf(std::size_t position);

 private:
  /// Stands at the unit of the text that is that of the line, if there is one.
  bool find();
  void step();
  /// Steps over a fold, with the sign of a soft break in front or not.
  bool passFold();

  TextView m_text;
  std::size_t m_begin;
  std::size_t m_at;
  TextView m_line;
  std::size_t m_position = 0;
  bool m_isQuotedPrintable = false;
  bool m_isLost = false;
};

} // namespace cardwright
