#pragma once

#include <cardwright/face.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright::tool {

/// What a text holds.
struct HeldCounts {
  std::size_t cards = 0;
  std::size_t properties = 0; ///< the lines of cards that cannot be used among them

  /// Adds what was read.
  void add(const ReadReport& report);
};

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
  /// Repeated properties were dropped, those that stood on one line with others are added, and
  /// pieces of torn lines that became part of a property are merged.
  void addCleaning(const HeldCounts& before, const HeldCounts& after,
                   const std::vector<CleaningRepair>& repairs);
  void addConversion(const ConversionReport& report);
  void addWriting(const WriteReport& report);

  /// "1 card in, 1 out, 0 repaired; 5 properties in, 5 out, 0 dropped"; what was added and merged
  /// is named where there is any.
  [[nodiscard]] std::string line() const;
};

/// Counts what bytes hold as they are. UTF-8 is read in portions, so that little memory is needed.
/// @param encoding as decoding reported it
[[nodiscard]] HeldCounts countHeld(std::string_view bytes, const std::string& encoding);

} // namespace cardwright::tool
