#include "base/slab_pool.h"

#include <algorithm>
#include <new>

namespace cardwright {

namespace {

constexpr std::size_t kLargestSlab = std::size_t{512} * 1024;
constexpr std::size_t kHead = alignof(std::max_align_t);

} // namespace

SlabPool::~SlabPool() {
  while (m_slabs != nullptr) {
    Slab* const before = m_slabs->before;
    ::operator delete(m_slabs);
    m_slabs = before;
  }
}

std::byte* SlabPool::addSlab(std::size_t size) {
  static_assert(sizeof(Slab) <= kHead);
  auto* const memory = static_cast<std::byte*>(::operator new(kHead + size));
  m_slabs = new (memory) Slab{m_slabs};
  return memory + kHead;
}

void* SlabPool::take(std::size_t size) {
  const std::lock_guard lock(m_mutex);
  if (static_cast<std::size_t>(m_end - m_next) >= size) {
    std::byte* const memory = m_next;
    m_next += size;
    return memory;
  }
  if (size > m_nextSize / 4) {
    // So much gets a slab of its own, and what is left of the last one is still of use.
    return addSlab(size);
  }
  m_next = addSlab(m_nextSize);
  m_end = m_next + m_nextSize;
  m_nextSize = std::min(m_nextSize * 2, kLargestSlab);
  std::byte* const memory = m_next;
  m_next += size;
  return memory;
}

} // namespace cardwright
