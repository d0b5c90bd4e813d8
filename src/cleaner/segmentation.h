#pragma once

#include "cardwright/text.h"

#include <vector>

namespace cardwright {

/// Whether a value is a URI of a common scheme, and every colon one of the scheme: then
/// cutMergedProperties surely leaves the line whole. False tells nothing.
/// @param name  of the property
/// @param value behind the first colon of the line, quoted or joined ones included
[[nodiscard]] bool isUncutUri(TextView name, TextView value) noexcept;

/// Cuts a line that carries several properties whose line breaks were lost, only where a header
/// cannot be part of the value before it.
/// @param pieces receives views of the line
/// @returns false when the line had better stay whole; the pieces then mean nothing
[[nodiscard]] bool cutMergedProperties(TextView line, std::vector<TextView>& pieces);

} // namespace cardwright
