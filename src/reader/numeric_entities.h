#pragma once

#include "cardwright/text.h"

#include <optional>

namespace cardwright {

/// The text with its numeric character references replaced; absent when there is none that stands
/// for a character.
[[nodiscard]] std::optional<Text> decodedNumericEntities(TextView text);

} // namespace cardwright
