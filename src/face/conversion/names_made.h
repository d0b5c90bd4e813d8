#pragma once

#include "face/conversion/step.h"

namespace cardwright {

// Names that a version asks for and the card lacks.

/// Adds FN, made of N, NICKNAME, ORG or EMAIL.
void addMissingFormattedName(Drafts& drafts, VersionCode version, ConversionRecorder& recorder);
/// Adds N, made of FN.
void addMissingName(Drafts& drafts, VersionCode version, ConversionRecorder& recorder);

} // namespace cardwright
