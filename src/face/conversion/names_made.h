#pragma once

#include "face/conversion/step.h"

namespace cardwright {

/// Adds the names that a version asks for and the card lacks: FN, made of N, NICKNAME, ORG or
/// EMAIL, and N, made of FN.
void addMissingNames(Drafts& drafts, VersionCode version, ConversionRecorder& recorder);

} // namespace cardwright
