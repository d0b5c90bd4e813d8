#pragma once

namespace cardwright {

/// The calling thread's own object of a type, made with the first call. Objects that outlive it may
/// ask for it too, such as one that writes a card when the thread or the program ends: they get
/// another one, and those that outlive that one a last one, which stays.
template <typename T>
[[nodiscard]] T& ofThread() {
  // Of types that are never destroyed, these can be looked at to the end.
  thread_local T* object = nullptr;
  thread_local int owners = 0;
  struct Owner {
    Owner() noexcept { ++owners; }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
    ~Owner() {
      delete object; // NOLINT: made below
      object = nullptr;
    }
  };
  if (object == nullptr) {
    object = new T; // NOLINT: owned by what follows
    if (owners == 0) {
      thread_local const Owner first;
    } else if (owners == 1) {
      thread_local const Owner second;
    }
  }
  return *object; // NOLINT: owners go with their thread
}

} // namespace cardwright
