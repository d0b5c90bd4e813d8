#pragma once

#include "cardwright/text.h"

#include <array>
#include <cstddef>

namespace cardwright {

// Parameters are walked from many places of one text: a line of damaged headers offers thousands.
// Two walks that begin outside quotes differ only by the number of quotes between them: with an
// even number the later one steps on the same places as the earlier one. So the outcome of one
// walk of each phase answers for all walks that begin on its way, and everything that is asked of
// a text costs no more than two walks over it.

/// The phase of a place: the parity of the double quotes before it. Places are asked for in
/// ascending order.
class QuotePhase {
 public:
  [[nodiscard]] std::size_t at(TextView text, std::size_t position) noexcept;

 private:
  std::size_t m_at = TextView::npos;
  std::size_t m_phase = 0;
};

/// Finds the colon that ends a header: the first one outside quotes, where quotes may not stay open
/// and neither CR nor LF may come first.
class ColonFinder {
 public:
  explicit ColonFinder(TextView text) noexcept : m_text(text) {}

  /// The colon for a parameter text that begins at `from`, or npos. Calls go forward in the text.
  [[nodiscard]] std::size_t colonBehind(std::size_t from) noexcept;

 private:
  struct Walk {
    bool isDone = false;
    std::size_t end = 0; ///< where it stopped
    std::size_t colon = TextView::npos;
  };

  void walk(Walk& walk, std::size_t from) const noexcept;

  TextView m_text;
  QuotePhase m_phase;
  std::array<Walk, 2> m_walks;
};

/// Tells whether what follows a name is a list of name=value parameters and then a colon.
class ParameterWalker {
 public:
  explicit ParameterWalker(TextView text) noexcept : m_text(text) {}

  /// `semicolon` is where the first parameter begins. Calls go forward in the text.
  [[nodiscard]] bool reachesColon(std::size_t semicolon) noexcept;

 private:
  struct Walk {
    bool isDone = false;
    std::size_t end = 0; ///< where it stopped
    bool reachesColon = false;
  };

  void walk(Walk& walk, std::size_t semicolon) const noexcept;

  TextView m_text;
  QuotePhase m_phase;
  std::array<Walk, 2> m_walks;
};

} // namespace cardwright
