#pragma once

#include "cardwright/text.h"

#include <cstdint>

namespace cardwright {

/// The version that the text of a VERSION property states: its leading number without a fraction,
/// 0 without one, and for a number below zero or beyond 64 bits.
[[nodiscard]] std::uint64_t versionStatedBy(TextView text);

} // namespace cardwright
