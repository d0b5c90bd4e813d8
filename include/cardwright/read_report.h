#pragma once

#include "cardwright/cleaning_repair.h"
#include "cardwright/decode.h"
#include "cardwright/text.h"
#include "cardwright/text_place.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright {

/// Why a line was dropped. The numbers are stable.
enum class DropReason {
  none = 0,                ///< the line was not dropped
  outsideCard = 1,         ///< text without ":" before a card
  missingName = 2,         ///< nothing that could be a name at the start
  missingColon = 3,        ///< no ":" where the value should begin
  emptyParameterName = 4,  ///< ";" without a parameter behind it
  emptyParameterValue = 5, ///< "=" without a value behind it
  versionWithoutText = 6,  ///< a VERSION whose value is no text
  afterEnd = 7,            ///< text behind END:VCARD on the same line
};

/// A short English phrase for a reason, such as "no colon before a value"; "unknown" for a number
/// without one. May be called from any thread.
[[nodiscard]] [[gnu::visibility("default")]] std::string_view dropReasonText(DropReason reason);

/// A line that the reader could not use.
struct DroppedLine {
  DropReason reason = DropReason::none; ///< why it was dropped
  TextPlace place;                      ///< where the logical line begins in the text that was read
  std::string text;                     ///< UTF-8, whole
};

/// What one reading call did.
struct ReadReport {
  DecodingReport decoding;             ///< how the bytes became text
  std::vector<std::string> summaries;  ///< one line for each repair, in UTF-8
  std::vector<CleaningRepair> repairs; ///< the same repairs with the lines they changed
  /// The first line before or behind the cards because of which nothing was repaired.
  std::optional<ForeignLine> foreignLine;
  std::size_t cards = 0;      ///< how many were read
  std::size_t properties = 0; ///< read from lines; a VERSION that the reader adds is not counted
  std::vector<DroppedLine> droppedLines; ///< in the order of the text
};

} // namespace cardwright
