#include "allocations/counted_memory.h"

#include <cstdlib>
#include <malloc.h>
#include <new>

// The programs of this folder have one thread.

namespace {

std::size_t allocations = 0;
std::size_t inUse = 0;
std::size_t peak = 0;

void* allocate(std::size_t size) {
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  ++allocations;
  inUse += malloc_usable_size(memory);
  peak = inUse > peak ? inUse : peak;
  return memory;
}

void release(void* memory) noexcept {
  inUse -= malloc_usable_size(memory);
  std::free(memory);
}

} // namespace

void* operator new(std::size_t size) {
  return allocate(size);
}
void* operator new[](std::size_t size) {
  return allocate(size);
}
void operator delete(void* memory) noexcept {
  release(memory);
}
void operator delete[](void* memory) noexcept {
  release(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  release(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
  release(memory);
}

namespace cardwright {

std::size_t allocationsSoFar() noexcept {
  return allocations;
}

std::size_t bytesInUse() noexcept {
  return inUse;
}

std::size_t takePeakBytes() noexcept {
  const std::size_t most = peak;
  peak = inUse;
  return most;
}

} // namespace cardwright
