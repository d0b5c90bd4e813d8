#pragma once

#include <cardwright/date_components.h>
#include <cardwright/text.h>

#include <cstdint>

namespace cardwright::tool {

/// A date, a time or both as people write them, "10 December 1815, 09:30 UTC", also where parts
/// are missing; empty when nothing is set.
[[nodiscard]] Text dateText(const DateComponents& components);

/// An offset from UTC, "UTC+05:30".
[[nodiscard]] Text offsetText(std::int64_t seconds);

} // namespace cardwright::tool
