#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace cardwright::tool {

/// The largest file that is taken.
inline constexpr std::size_t kMostBytes = std::size_t{64} * 1024 * 1024;

/// Answers the page until the process ends. Only this machine is listened to, and nothing is kept.
/// @param port    0 for any that is free
/// @param token   what the page's address begins with
/// @param isReady gets the address when it can be opened, and returns whether to go on
/// @returns the system's number of the error that kept it from listening; 0 when it was not to go
/// on
int serve(int port, const std::string& token,
          const std::function<bool(const std::string& address)>& isReady);

} // namespace cardwright::tool
