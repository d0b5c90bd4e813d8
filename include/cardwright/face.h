#pragma once

#include "cardwright/cleaning_repair.h"
#include "cardwright/conversion_report.h"
#include "cardwright/decode.h"
#include "cardwright/read_report.h"
#include "cardwright/vcard.h"
#include "cardwright/write_report.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright {

// Bytes in, cards or bytes out: the everyday operations. All may be called from any thread; objects
// that are handed in belong to the call while it runs.

/// How bytes are read.
struct ReadOptions {
  /// The encoding, where it is known better than the bytes tell; see decodeFile. An unknown name
  /// counts as none.
  std::optional<std::string> encoding;
  /// Whether damaged text is repaired before it is read.
  bool clean = true;
  /// Asked for empty notes of version 2.1 cards; borrowed, may be null.
  ContactsParser* contactsParser = nullptr;
};

/// Reads all cards of a file, however damaged: what is damaged is repaired where the damage is
/// understood, and the rest is left out.
/// @param bytes   a file in any encoding, see decodeFile()
/// @param report  receives what was repaired, read and dropped; nothing of the result depends on it
/// @param options see ReadOptions
/// @returns the cards in text order, none for a text without any
[[nodiscard]] [[gnu::visibility("default")]] VCardList
readCards(std::string_view bytes, ReadReport* report = nullptr, const ReadOptions& options = {});

/// What one cleaning call did.
struct CleanReport {
  DecodingReport decoding;             ///< how the bytes became text
  std::vector<std::string> summaries;  ///< one line for each repair, in UTF-8
  std::vector<CleaningRepair> repairs; ///< the same repairs with the lines they changed
  /// The first line before or behind the cards because of which nothing was repaired.
  std::optional<ForeignLine> foreignLine;
};

/// Repairs a file without reading its cards.
/// @param bytes    a file in any encoding
/// @param report   receives what was repaired; nothing of the result depends on it
/// @param encoding see decodeFile; an unknown name counts as none
/// @param reading  receives what readCards would report of the same bytes, though no cards are
///                 made: for programs that tell how much a file holds
/// @returns the repaired text in UTF-8; absent when the file needs nothing, and is best kept byte
///          for byte. Bytes dropped in decoding are a repair too.
[[nodiscard]] [[gnu::visibility("default")]] std::optional<std::string>
cleanText(std::string_view bytes, CleanReport* report = nullptr,
          std::optional<std::string_view> encoding = std::nullopt, ReadReport* reading = nullptr);

/// Writes cards so that the same cards are read again: nothing that a value, a parameter, a name or
/// a group holds becomes structure, and nothing sound is lost. The cards themselves are not
/// changed. A null card is passed over.
/// @param cards   in the order in which they are written
/// @param report  receives what was changed or left out; nothing of the result depends on it
/// @param options see WriteOptions
/// @returns UTF-8, each card from BEGIN:VCARD to END:VCARD; empty without cards
[[nodiscard]] [[gnu::visibility("default")]] std::string
writeCards(const VCardList& cards, WriteReport* report = nullptr, const WriteOptions& options = {});

/// Converts cards to a version, whatever versions they are of: docs/conversion.md tells what
/// becomes of each property, parameter and type. The cards themselves are not changed, but the new
/// ones share the values that need no other form with them.
/// @param cards   of any versions, mixed too
/// @param version 2, 3 or 4; the nearest of them for any other code
/// @param report  receives what was converted, parked and dropped
/// @returns a card for each that was given, in the same order; null cards are passed over
[[nodiscard]] [[gnu::visibility("default")]] VCardList
convertCards(const VCardList& cards, VersionCode version, ConversionReport* report = nullptr);

} // namespace cardwright
