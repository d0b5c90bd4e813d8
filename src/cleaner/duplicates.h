#pragma once

#include "cardwright/text.h"
#include "cleaner/plain_lines.h"

#include <cstddef>
#include <set>
#include <unordered_map>
#include <vector>

namespace cardwright {

/// Finds the repeats of bookkeeping properties and of group members among lines that are offered
/// in order, card by card.
class DuplicateFinder {
 public:
  /// @param repeats receives the numbers of lines to be left out, each card's in ascending order
  explicit DuplicateFinder(std::vector<std::size_t>& repeats) noexcept : m_repeats(repeats) {}

  /// Takes a line of a text of cards.
  /// @param line   stays valid until the card ends
  /// @param number ascending
  void take(TextView line, std::size_t number);
  /// Takes the next line where that is a plain one.
  void pass(PlainLine line);
  /// Takes a line of the card, wherever it stands.
  void takeInCard(TextView line, std::size_t number);
  /// Whether the line would be remembered, so that it has to stay valid.
  [[nodiscard]] static bool isRemembered(TextView line);

  /// Ends the card, or the text.
  void finishCard();

 private:
  std::vector<std::size_t>& m_repeats;
  bool m_isInCard = false;
  std::size_t m_cardBegin = 0;
  std::unordered_map<TextView, std::size_t> m_lastOfName;
  std::set<TextView> m_memberValues; ///< ordered: a file could be made so that hashes collide
};

} // namespace cardwright
