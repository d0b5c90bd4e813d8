#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <optional>
#include <span>

namespace cardwright {

/// Repairs text in which every line break was written as CR CR or CR CR LF. Text that mixes line
/// ends in other ways is left alone.
/// @returns absent when nothing was repaired
[[nodiscard]] std::optional<Text> repairedSeparators(TextView text);

/// Where places of a repaired text were in the text that it was repaired from.
/// @param offsets ascending; each is replaced by its place in `original`
void placesBeforeSeparatorRepair(TextView original, TextView repaired,
                                 std::span<std::size_t> offsets);

} // namespace cardwright
