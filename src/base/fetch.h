#pragma once

#include <cstddef>
#include <cstdint>

namespace cardwright {

// A processor that is told early what will be looked at fetches it beside its other work.

/// Asks for the memory of an object, wherever that is: nothing is read.
template <typename T>
void fetch(const T* object) noexcept {
#if defined(__GNUC__)
  constexpr std::size_t kCacheLine = 64;
  const auto* const bytes = reinterpret_cast<const char*>(object); // NOLINT: nothing is read
  for (std::size_t at = 0; at < sizeof(T); at += kCacheLine) {
    __builtin_prefetch(bytes + at);
  }
#else
  static_cast<void>(object);
#endif
}

/// Asks for what lies 2 KB behind a place of a text that is gone through. The processor looks ahead
/// by itself, but not beyond a page of memory, and has to begin anew on each: every few lines. The
/// text may end before.
inline void fetchAhead(const char16_t* place) noexcept {
#if defined(__GNUC__)
  constexpr std::uintptr_t kAhead = 2048;
  const auto ahead = reinterpret_cast<std::uintptr_t>(place) + kAhead;
  __builtin_prefetch(reinterpret_cast<const void*>(ahead)); // NOLINT: nothing is read
#else
  static_cast<void>(place);
#endif
}

} // namespace cardwright
