#pragma once

#include <cardwright/face.h>

#include <cstddef>
#include <string>

namespace cardwright::tool {

/// What went into a command and what came out. Properties that went in or were added are those
/// that came out, were dropped or became part of another.
struct Sums {
  std::size_t cardsIn = 0;
  std::size_t cardsOut = 0;
  std::size_t cardsRepaired = 0;
  std::size_t propertiesIn = 0; ///< the lines of cards that could not be used among them
  std::size_t propertiesAdded = 0;
  std::size_t propertiesOut = 0;
  std::size_t propertiesMerged = 0;
  std::size_t propertiesDropped = 0;

  /// @param held how many properties the cards hold that were read
  void addReading(const ReadReport& report, std::size_t held);
  void addConversion(const ConversionReport& report);
  void addWriting(const WriteReport& report);

  /// "1 card in, 1 out, 0 repaired; 5 properties in, 5 out, 0 dropped"; what was added and merged
  /// is named where there is any.
  [[nodiscard]] std::string line() const;
};

/// How many cards of a text were repaired.
[[nodiscard]] std::size_t repairedCards(std::string_view bytes, const ReadReport& report);

} // namespace cardwright::tool
