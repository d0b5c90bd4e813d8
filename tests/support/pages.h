#pragma once

#include <string>

namespace cardwright {

// Pages of the documentation that are made from the tables that the code reads.

/// docs/conversion.md.
[[nodiscard]] std::string conversionPage();

/// docs/checks.md.
[[nodiscard]] std::string checksPage();

} // namespace cardwright
