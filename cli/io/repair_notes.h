#pragma once

#include "io/diagnostics.h"

#include <cardwright/face.h>

#include <string>
#include <vector>

namespace cardwright::tool {

/// What was repaired in a file, one line for each repair, the decoding first: "3 bytes dropped that
/// are not UTF-8".
[[nodiscard]] std::vector<std::string> repairNotes(const DecodingReport& decoding,
                                                   const std::vector<std::string>& summaries);

/// Says why nothing was repaired where that is not because nothing is broken.
[[nodiscard]] std::string foreignLineNote(const ForeignLine& line);

/// Says each of these notes about a file once, with how often it comes.
void tellNotes(const std::string& path, const std::vector<std::string>& notes,
               Diagnostics& diagnostics);

/// Says what was repaired in a file, or why nothing was where that is not because nothing is
/// broken.
void noteRepairs(const std::string& path, const CleanReport& report, Diagnostics& diagnostics);

} // namespace cardwright::tool
