#pragma once

#include "cardwright/cleaning_repair.h"
#include "cardwright/conversion_report.h"
#include "cardwright/read_report.h"
#include "cardwright/write_report.h"

#include <string_view>

namespace cardwright {

// Short names of what reports tell, for programs: "merged-properties". They are stable.

[[nodiscard]] [[gnu::visibility("default")]] std::string_view codeOf(CleaningRepairKind kind);
[[nodiscard]] [[gnu::visibility("default")]] std::string_view codeOf(DropReason reason);
[[nodiscard]] [[gnu::visibility("default")]] std::string_view codeOf(WriteChangeKind kind);
[[nodiscard]] [[gnu::visibility("default")]] std::string_view codeOf(ConversionKind kind);

} // namespace cardwright
