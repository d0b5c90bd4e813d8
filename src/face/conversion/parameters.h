#pragma once

#include "face/conversion/step.h"

namespace cardwright {

/// Gives parameters, types and encodings of a property the form of the step's target version.
void convertParameters(Draft& draft, const ConversionStep& step);

/// Makes VALUE state what kind of value the property holds, if the version has to be told, and
/// keeps kinds that the version does not have as text.
void stateValue(Draft& draft, VersionCode version, ConversionRecorder& recorder);

} // namespace cardwright
