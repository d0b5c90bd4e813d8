#pragma once

#include "cardwright/text.h"

#include <vector>

namespace cardwright {

/// Sorts names of properties as they are written: VERSION, PRODID, FN, N, ORG, TITLE, EMAIL, TEL
/// and ADR, then the others by their code units.
void sortPropertyNames(std::vector<TextView>& names);

/// Sorts names of parameters: VALUE, ENCODING and TYPE, then the others by their code units.
void sortParameterNames(std::vector<TextView>& names);

} // namespace cardwright
