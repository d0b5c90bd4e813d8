#include "kept_memory.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <malloc.h>
#include <unistd.h>

namespace cardwright {

namespace {

std::size_t availableMemory() {
  return static_cast<std::size_t>(::sysconf(_SC_AVPHYS_PAGES)) *
         static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

bool isKept() {
  // No allocation gets pages of its own, and none is given back.
  ::mallopt(M_MMAP_MAX, 0);
  ::mallopt(M_TRIM_THRESHOLD, -1);
  constexpr std::size_t kWanted = std::size_t{8} << 30U;
  const std::size_t size = std::min(kWanted, availableMemory() / 4 * 3);
  void* memory = std::malloc(size); // NOLINT: to be filled and given back, nothing else
  if (memory != nullptr) {
    std::memset(memory, 1, size);
    benchmark::DoNotOptimize(memory);
  }
  std::free(memory); // NOLINT: as above
  return true;
}

} // namespace

void keepMemory() {
  static const bool isDone = isKept();
  static_cast<void>(isDone);
}

} // namespace cardwright
