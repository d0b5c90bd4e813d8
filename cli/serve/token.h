#pragma once

#include <string>

namespace cardwright::tool {

/// 128 bits that nobody can guess, from the system, in hexadecimal digits; empty when the system
/// has none to give.
[[nodiscard]] std::string randomToken();

} // namespace cardwright::tool
