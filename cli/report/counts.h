#pragma once

#include <cardwright/face.h>

#include <cstddef>
#include <functional>
#include <map>
#include <string>

namespace cardwright::tool {

/// How often each of several things was found, by its name.
using Tally = std::map<std::string, std::size_t, std::less<>>;

/// What there is in cards, and what was wrong with them.
struct Counts {
  std::size_t cards = 0;
  std::size_t properties = 0; ///< that were read from lines
  Tally versions;             ///< cards by "2.1", "3.0", "4.0", "other" and "none"
  Tally names;                ///< properties by upper-cased name
  Tally repairs;              ///< by code
  Tally droppedLines;         ///< lines that could not be used, by code

  /// Counts what a file was read with, its cards aside. To be called behind its cards.
  void addReading(const ReadReport& report);
  void addCard(const VCard& card);
  /// Adds those of another file.
  void add(const Counts& other);

 private:
  std::size_t m_held = 0; ///< properties of the cards of this file, stated or not
};

[[nodiscard]] std::size_t sumOf(const Tally& tally);

} // namespace cardwright::tool
