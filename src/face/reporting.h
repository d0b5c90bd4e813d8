#pragma once

#include "cardwright/cleaning_repair.h"
#include "cardwright/read_report.h"
#include "cleaner/cleaning.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright {

/// Decodes bytes; a name of an encoding that nobody knows counts as none.
[[nodiscard]] Text decodedBytes(std::string_view bytes, std::optional<std::string_view> encoding,
                                DecodingReport& report);

/// Moves the repairs of a run into a report, with the lines they stand on.
void reportRepairs(Cleaning& cleaning, TextView original, std::vector<std::string>& summaries,
                   std::vector<CleaningRepair>& repairs);

/// What kept a text from being looked at, if anything did.
[[nodiscard]] std::optional<ForeignLine> foreignLine(const Cleaning& cleaning, TextView text);

/// Makes the places of dropped lines those of the original text.
void placeDroppedLines(const Cleaning& cleaning, TextView original,
                       std::vector<DroppedLine>& droppedLines);

} // namespace cardwright
