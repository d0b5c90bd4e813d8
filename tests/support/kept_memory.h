#pragma once

#include <cstdlib>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace cardwright {

/// Lets the process keep the memory that it frees. Otherwise large blocks go back to the system
/// and come again page by page, and a measured time is mostly that of the pages.
inline void keepMemory() {
#if defined(__GLIBC__)
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, -1);
#endif
}

} // namespace cardwright
