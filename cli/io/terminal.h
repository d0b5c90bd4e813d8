#pragma once

#include <cstddef>

namespace cardwright::tool {

/// When to colour.
enum class ColorWish { automatic, always, never };

/// Whether to colour what goes to a descriptor. Left to itself, that is on a terminal that can,
/// unless the environment holds NO_COLOR (https://no-color.org).
[[nodiscard]] bool wantsColor(ColorWish wish, int descriptor);

/// Columns of the terminal behind a descriptor; for anything else the number in COLUMNS, or 80.
[[nodiscard]] std::size_t terminalColumns(int descriptor);

} // namespace cardwright::tool
