#include "base/large_memory.h"

#include <cstdint>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace cardwright {

void useLargePages(const void* memory, std::size_t bytes) noexcept {
#if defined(__linux__) && defined(MADV_HUGEPAGE)
  // Less may not hold a single whole page of that size.
  constexpr std::size_t kLeast = std::size_t{4} * 1024 * 1024;
  constexpr std::uintptr_t kPage = std::uintptr_t{2} * 1024 * 1024;
  if (bytes < kLeast) {
    return;
  }
  const auto begin = reinterpret_cast<std::uintptr_t>(memory);
  const std::uintptr_t first = (begin + kPage - 1) / kPage * kPage;
  const std::uintptr_t end = (begin + bytes) / kPage * kPage;
  // Advice that is not taken changes nothing.
  static_cast<void>(::madvise(reinterpret_cast<void*>(first), // NOLINT: whole pages of the memory
                              end - first, MADV_HUGEPAGE));
#else
  static_cast<void>(memory);
  static_cast<void>(bytes);
#endif
}

} // namespace cardwright
