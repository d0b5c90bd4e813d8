#pragma once

#include "cardwright/cleaning_repair.h"
#include "cardwright/conversion_report.h"
#include "cardwright/read_report.h"
#include "cardwright/write_report.h"

#include <string_view>

namespace cardwright {

/// @name Codes
/// @{

/// The short name of what a report tells, for programs: "merged-properties". Names are stable, in
/// ASCII, and live as long as the program; a number without a name is "unknown". May be called from
/// any thread.
[[nodiscard]] [[gnu::visibility("default")]] std::string_view codeOf(CleaningRepairKind kind);
[[nodiscard]] [[gnu::visibility("default")]] std::string_view codeOf(DropReason reason);
[[nodiscard]] [[gnu::visibility("default")]] std::string_view codeOf(WriteChangeKind kind);
[[nodiscard]] [[gnu::visibility("default")]] std::string_view codeOf(ConversionKind kind);
/// @}

} // namespace cardwright
