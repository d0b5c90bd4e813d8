#pragma once

#include "base/scan_lanes.h"
#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

/// A logical line: one physical line, or several joined.
struct LogicalLine {
  TextView text;     ///< part of the text that is read, or of the scanner's buffer
  std::size_t begin; ///< where its first physical line begins, in code units
  bool isJoined;     ///< whether it is several
  bool hasAmpersand; ///< whether the text holds "&"
};

/// Reads the logical lines of a text one after the other.
class LineScanner {
 public:
  LineScanner(TextView text, std::size_t location) noexcept : m_text(text), m_location(location) {}

  /// Joins lines in the text itself, where all lines then stay valid. The text keeps its size and
  /// the number of its line breaks up to any line that was not read yet.
  [[nodiscard]] static LineScanner inPlace(Text& text, std::size_t location) noexcept {
    LineScanner scanner(text, location);
    scanner.m_isInPlace = true;
    return scanner;
  }

  /// Index of the next code unit to be read: the start of a physical line.
  [[nodiscard]] std::size_t location() const noexcept { return m_location; }
  void setLocation(std::size_t location) noexcept { m_location = location; }

  /// Steps over a physical line that ends at `end`, and the line ends behind it.
  /// @returns false, with nothing done, when it goes on in the next one
  bool stepOver(std::size_t end) noexcept;

  /// Reads the next line, which stays valid until the next call at least.
  /// @returns false when no code unit could be read
  bool next(LogicalLine& line);

 private:
  [[nodiscard]] ValueMarks scanSegment() noexcept;
  void skipLineTerminators() noexcept;

  TextView m_text;
  std::size_t m_location;
  Text m_buffer;
  bool m_isInPlace = false;
};

} // namespace cardwright
