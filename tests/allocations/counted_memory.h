#pragma once

#include <cstddef>

namespace cardwright {

/// How often this program has asked for memory so far.
[[nodiscard]] std::size_t allocationsSoFar() noexcept;

/// Bytes in use now, as the allocator counts them.
[[nodiscard]] std::size_t bytesInUse() noexcept;

/// The most bytes that were in use at once since it was last called.
[[nodiscard]] std::size_t takePeakBytes() noexcept;

} // namespace cardwright
