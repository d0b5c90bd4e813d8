#include "base/slab_pool.h"

#include <algorithm>
#include <new>

namespace cardwright {

namespace {

constexpr std::size_t kLargestSlab = std::size_t{512} * 1024;
constexpr std::size_t kAlignment = alignof(std::max_align_t);

constexpr std::size_t aligned(std::size_t size) noexcept {
  return (size + kAlignment - 1) / kAlignment * kAlignment;
}

} // namespace

SlabPool::~SlabPool() {
  for (Slab* slab = m_slabs; slab != nullptr;) {
    Slab* const before = slab->before;
    ::operator delete(slab);
    slab = before;
  }
}

SlabPool::Slab* SlabPool::addSlab(std::size_t size) {
  auto* const memory = static_cast<std::byte*>(::operator new(aligned(sizeof(Slab)) + size));
  auto* const slab = new (memory) Slab{m_slabs, nullptr, 0};
  if (m_slabs != nullptr) {
    m_slabs->after = slab;
  }
  m_slabs = slab;
  return slab;
}

void SlabPool::removeSlab(Slab* slab) noexcept {
  if (slab->before != nullptr) {
    slab->before->after = slab->after;
  }
  (slab->after != nullptr ? slab->after->before : m_slabs) = slab->before;
  ::operator delete(slab);
}

void* SlabPool::cut(Slab* slab, std::byte* memory) {
  ++slab->taken;
  new (memory) Head{slab};
  return memory + aligned(sizeof(Head));
}

void* SlabPool::take(std::size_t size) {
  const std::lock_guard lock(m_mutex);
  const std::size_t needed = aligned(sizeof(Head)) + size;
  if (static_cast<std::size_t>(m_end - m_next) < needed) {
    if (needed > m_nextSize / 4) {
      // So much gets a slab of its own, and what is left of the last one is still of use.
      Slab* const slab = addSlab(needed);
      return cut(slab, reinterpret_cast<std::byte*>(slab) + aligned(sizeof(Slab)));
    }
    Slab* const last = m_current;
    m_current = addSlab(m_nextSize);
    m_next = reinterpret_cast<std::byte*>(m_current) + aligned(sizeof(Slab));
    m_end = m_next + m_nextSize;
    m_nextSize = std::min(m_nextSize * 2, kLargestSlab);
    if (last != nullptr && last->taken == 0) {
      removeSlab(last);
    }
  }
  std::byte* const memory = m_next;
  m_next += needed;
  return cut(m_current, memory);
}

void SlabPool::giveBack(void* memory) noexcept {
  const std::lock_guard lock(m_mutex);
  auto* const piece = static_cast<std::byte*>(memory) - aligned(sizeof(Head));
  Slab* const slab = std::launder(reinterpret_cast<Head*>(piece))->slab;
  if (--slab->taken != 0) {
    return;
  }
  if (slab == m_current) {
    m_next = reinterpret_cast<std::byte*>(slab) + aligned(sizeof(Slab)); // It is cut anew.
  } else {
    removeSlab(slab);
  }
}

} // namespace cardwright
