#pragma once

#include "face/conversion/step.h"

namespace cardwright {

// What is a property below version 4 and a parameter in it: the label of an address, and what the
// name is sorted by.

/// Whether a parameter is left to splitParameters().
[[nodiscard]] bool isSplitParameter(TextView property, TextView parameter) noexcept;

/// Makes LABEL and SORT-STRING parameters of what they belong to; parks the rest.
void mergeProperties(Drafts& drafts, const ConversionStep& step);
/// Makes them properties again.
void splitParameters(Drafts& drafts, const ConversionStep& step);

} // namespace cardwright
