#pragma once

#include <string>

namespace cardwright {

// Pages of the documentation that are made from the tables that the code reads.

/// docs/conversion.md.
[[nodiscard]] std::string conversionPage();

} // namespace cardwright
