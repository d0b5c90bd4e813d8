#pragma once

#include "face/conversion/step.h"

namespace cardwright {

/// Pictures, sounds and keys: base64 below version 4, data: URIs in it. The bytes never change.
void convertMedia(Draft& draft, const ConversionStep& step);

} // namespace cardwright
