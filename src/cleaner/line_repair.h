#pragma once

#include "cardwright/cleaning_repair.h"
#include "cardwright/text.h"

#include <optional>

namespace cardwright {

/// A repaired line.
struct LineRepair {
  CleaningRepairKind kind;
  TextList lines;
  Text summary;
};

/// Repairs a logical line by the first rule that applies to it; absent when it needs nothing.
[[nodiscard]] std::optional<LineRepair> repairLine(TextView line);

} // namespace cardwright
