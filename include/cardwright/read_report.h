#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright {

/// Where something stands in a text.
struct TextPlace {
  std::size_t offset = 0; ///< UTF-16 code units from the start of the decoded text
  std::size_t line = 1;   ///< physical line, counted from 1; CR LF, CR and LF each end one

  friend bool operator==(const TextPlace&, const TextPlace&) = default;
};

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

/// A short English phrase for a reason, such as "no colon".
[[nodiscard]] [[gnu::visibility("default")]] std::string_view dropReasonText(DropReason reason);

/// A line that the reader could not use.
struct DroppedLine {
  DropReason reason = DropReason::none;
  TextPlace place;  ///< where the logical line begins in the text that was read
  std::string text; ///< UTF-8, whole
};

/// What one reading call did.
struct ReadReport {
  std::size_t cards = 0;
  std::size_t properties = 0; ///< read from lines; a VERSION that the reader adds is not counted
  std::vector<DroppedLine> droppedLines;
};

} // namespace cardwright
