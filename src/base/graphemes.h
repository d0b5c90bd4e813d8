#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <cstdint>

namespace cardwright {

/// Walks a text character by character: what a reader sees as one, an extended grapheme cluster
/// (Unicode Standard Annex 29). CR LF is one character.
///
/// Most neighbours tell by themselves whether they join; ICU's iterator is asked for the rest, such
/// as flags, a run at a time, so that a walk over the whole text is linear.
class GraphemeWalker {
 public:
  explicit GraphemeWalker(TextView text) noexcept : m_text(text) {}

  [[nodiscard]] bool atEnd() const noexcept { return m_position >= m_text.size(); }
  /// Where the next character begins.
  [[nodiscard]] std::size_t position() const noexcept { return m_position; }
  /// Steps over the next character, which there must be, and returns where it ends.
  std::size_t next();

 private:
  [[nodiscard]] std::size_t nextInRun();

  TextView m_text;
  std::size_t m_position = 0;
  std::size_t m_runEnd = 0;      ///< end of the run that ICU was given last
  std::uint64_t m_iteration = 0; ///< ticket of that run
};

/// End of the character that begins at `position`, a character boundary before the text's end.
[[nodiscard]] std::size_t endOfCharacter(TextView text, std::size_t position);

/// The last character boundary behind `begin` up to `position`, which is before the text's end;
/// `begin` when there is none, or when what stands between the two does not tell.
[[nodiscard]] std::size_t certainBoundaryBefore(TextView text, std::size_t begin,
                                                std::size_t position);

/// Start of the last character of a text that is not empty.
[[nodiscard]] std::size_t startOfLastCharacter(TextView text);

/// Whether exactly the unit at `position` is a character of its own. What joins it from either
/// side, such as a combining mark, makes it another character. Constant time for ASCII units.
[[nodiscard]] bool isCharacterByItself(TextView text, std::size_t position);

} // namespace cardwright
