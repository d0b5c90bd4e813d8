#pragma once

#include "cardwright/text.h"
#include "writer/unchanged/bytes.h"
#include "writer/unchanged/rewriting.h"

#include <cstddef>
#include <optional>

namespace cardwright {

/// So many items of parameters are put in order; lines with more are left to their properties.
inline constexpr std::size_t kMostItems = 12;

/// What parameters say of how the value is to be read.
struct StatedForm {
  std::optional<TextView> type; ///< the first value of VALUE, if there is any
  TextView quotedPrintable;     ///< what says that it is, of UTF-8; part of the line, or empty
  bool isOrdinary = true;       ///< whether writeCards has nothing to mend, what that says aside
};

/// Appends the parameters of a line that was read as they are written.
/// @param key the upper-cased name of the property
/// @param at  where the first ";" stands; moved to the colon
/// @returns false where the texts have to be known
[[nodiscard]] bool rewriteParameters(Bytes& output, TextView line, TextView key,
                                     const HeaderTask& task, std::size_t& at, StatedForm& stated);

} // namespace cardwright
