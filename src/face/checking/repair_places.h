#pragma once

#include "cardwright/cleaning_repair.h"

namespace cardwright {

/// Where in the original text the damage is that a repair mended: the place of the repair tells no
/// more than where its line begins.
[[nodiscard]] std::size_t damageOf(const CleaningRepair& repair, TextView original);

} // namespace cardwright
