#pragma once

#include "cleaner/plain_lines.h"
#include "cleaner/unfolding.h"

namespace cardwright {

/// Joins the lines of quoted-printable values that were split at soft breaks without indentation.
/// Lines are offered one by one; each is either swallowed by the one before it or begins anew.
class SoftBreakMerger {
 public:
  /// Whether `next` goes on in `line`, the one before it. Must be asked of each line in turn.
  [[nodiscard]] bool isContinuedBy(TextView line, TextView next);

  /// Appends a line that goes on in it to the value before it.
  void merge(Text& line, TextView next);

  /// A new line has become the last one.
  void startLine() noexcept { m_header = {}; }

 private:
  GrowingHeader m_header;
};

/// Gives the logical lines of a text with such values joined.
class LogicalLines {
 public:
  explicit LogicalLines(TextView text) noexcept : m_unfolder(text) {}

  /// The line stays valid until the next call.
  /// @returns false when there is no further line
  bool next(UnfoldedLine& line);

  /// Where the next line begins; meaningless behind a line that was looked at ahead.
  [[nodiscard]] std::size_t location() const noexcept { return m_unfolder.location(); }

  /// Steps over the next line if it is a plain one.
  bool passPlainLine(PlainLook& look);

  /// Whether the last line was joined at soft breaks.
  [[nodiscard]] bool wasMerged() const noexcept { return m_wasMerged; }

 private:
  Unfolder m_unfolder;
  SoftBreakMerger m_merger;
  Text m_buffer;
  UnfoldedLine m_ahead;
  Text m_aheadBuffer;
  bool m_hasAhead = false;
  bool m_wasMerged = false;
};

} // namespace cardwright
