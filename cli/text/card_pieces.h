#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace cardwright::tool {

/// Cuts a text behind each line that ends a card, so that each piece holds one card and what stands
/// before it, as it stands there. What is behind the last card is a piece of its own. Blank lines
/// between pieces belong to none.
class CardPieces {
 public:
  /// @param text UTF-8 without a byte-order mark; outlives this object
  explicit CardPieces(std::string_view text) noexcept : m_text(text) {}

  /// @returns whether there is another piece
  bool next(std::string_view& piece);
  /// Whether the last line of the last piece ends a card.
  [[nodiscard]] bool endsCard() const noexcept { return m_endsCard; }
  /// How much of the text was cut, in bytes.
  [[nodiscard]] std::size_t position() const noexcept { return m_at; }

 private:
  /// Passes one line with those that continue it.
  /// @param end receives the end of what is not blank of a line that ends a card
  /// @returns whether it is such a line
  bool passLine(std::size_t& end);
  [[nodiscard]] bool isBlankAhead() const;
  std::string_view takeSegment();

  std::string_view m_text;
  std::size_t m_at = 0;
  bool m_endsCard = false;
};

/// The text with each of its line ends, and one at its end, written as CR LF. CRs before a LF are
/// one line end with it.
[[nodiscard]] std::string withAlikeLineEnds(std::string_view text);

} // namespace cardwright::tool
