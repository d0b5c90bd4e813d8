#pragma once

#include "base/utf8_lanes.h"

namespace cardwright {

/// The same as encodeByLanes, 32 units at a time, and reads nothing behind the text. Only where
/// usesWideLanes says so; elsewhere it stops at once.
[[nodiscard]] EncodedRun encodeByWideLanes(TextView text, char* output) noexcept;

/// The same as decodeByLanes, 32 bytes at a time. Likewise.
[[nodiscard]] DecodedRun decodeByWideLanes(std::string_view utf8, char16_t* output,
                                           std::size_t room) noexcept;

} // namespace cardwright
