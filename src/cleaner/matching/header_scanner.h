#pragma once

#include "cardwright/text.h"
#include "cleaner/matching/quotes.h"

#include <cstddef>
#include <optional>

namespace cardwright {

/// Which names a header may have.
enum class HeaderNames {
  allowed, ///< the allowlisted ones
  anyUpper ///< the standard ones and every extension
};

/// A header found in a text, from its group label or name through its colon:
///
///     item1.X-ABLABEL;TYPE=a:value
///     |     |        |       |
///     start name     nameEnd end - 1
struct HeaderMatch {
  std::size_t start;
  std::size_t name;
  std::size_t nameEnd;
  std::size_t end;
};

/// Finds the headers of a text from left to right, in time linear in the text for all of them.
///
/// A name is never searched for: every header's name stands before a ":" or ";", so the scanner
/// goes from one of those to the next and looks back.
class HeaderScanner {
 public:
  HeaderScanner(TextView text, HeaderNames names) noexcept
      : m_text(text), m_names(names), m_tail(text), m_parameters(text) {}

  [[nodiscard]] std::optional<HeaderMatch> next() noexcept;

 private:
  friend std::optional<HeaderMatch> headerAtStart(TextView text, HeaderNames names) noexcept;

  [[nodiscard]] std::optional<HeaderMatch> headerWithNameBefore(std::size_t delimiter) noexcept;

  TextView m_text;
  HeaderNames m_names;
  std::size_t m_from = 0; ///< end of the last match
  std::size_t m_at = 0;   ///< where the next delimiter is looked for
  ColonFinder m_tail;
  ParameterWalker m_parameters;
};

/// The header that begins with the text, if any.
[[nodiscard]] std::optional<HeaderMatch> headerAtStart(TextView text, HeaderNames names) noexcept;

/// Whether a standard name stands before any ":" or ";" of the text. Where none does, and no
/// extended name either, the text holds no header.
[[nodiscard]] bool mayHoldStandardHeader(TextView text) noexcept;

/// Whether the text holds at least two headers with any upper-case name.
[[nodiscard]] bool holdsTwoHeaders(TextView text) noexcept;

} // namespace cardwright
