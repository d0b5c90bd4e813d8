#pragma once

#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

/// A logical line of a text that is cleaned.
struct UnfoldedLine {
  TextView text;         ///< part of the text, or of the buffer of who gave the line
  std::size_t begin = 0; ///< where its first physical line begins, in code units
  std::size_t end = 0;   ///< where its last physical line ends, before the line end
  bool isJoined = false; ///< whether the text lies in that buffer
};

/// Tells whether a line that grows at its end is quoted-printable, looking at no unit of its header
/// twice. To be asked only when the line ends in "=", for then all before it is settled.
class GrowingHeader {
 public:
  [[nodiscard]] bool declaresQuotedPrintable(TextView line);
  /// The line has grown behind a soft break: a mark at the seam may have swallowed the colon.
  void seamAt(std::size_t position, TextView line);

 private:
  std::size_t m_next = 0;
  bool m_inQuotes = false;
  bool m_hasColon = false;
  bool m_isQuotedPrintable = false;
};

/// Gives the logical lines of a text one by one: physical lines, ended by CR LF, CR or LF, with
/// their continuations. Empty lines at the end of the text are left out.
class Unfolder {
 public:
  explicit Unfolder(TextView text) noexcept : m_text(text) {}

  /// @returns false when there is no further line
  bool next(UnfoldedLine& line, Text& buffer);

  [[nodiscard]] TextView text() const noexcept { return m_text; }
  /// Where the next line begins.
  [[nodiscard]] std::size_t location() const noexcept { return m_location; }
  void setLocation(std::size_t location) noexcept { m_location = location; }

 private:
  struct PhysicalLine {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t next = 0;
  };

  [[nodiscard]] PhysicalLine physicalLineAt(std::size_t begin) const noexcept;
  [[nodiscard]] bool isContinuation(const PhysicalLine& line) const;
  [[nodiscard]] bool hasContentFrom(std::size_t begin);

  TextView m_text;
  std::size_t m_location = 0;
  std::size_t m_contentAt = 0; ///< the physical line that was last looked at for content
  bool m_hasContentAt = false; ///< whether it has any
};

} // namespace cardwright
