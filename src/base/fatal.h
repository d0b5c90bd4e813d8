#pragma once

#include <string_view>

namespace cardwright {

/// Ends the process after a programming error of the caller, with its fixed message.
[[noreturn]] void fatalError(std::string_view message) noexcept;

} // namespace cardwright
