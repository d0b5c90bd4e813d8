#include "base/arena.h"

#include "base/slab_pool.h"

#include <algorithm>
#include <new>

namespace cardwright {

namespace {

constexpr std::size_t kAlignment = alignof(std::max_align_t);
constexpr std::size_t kFurther = 1024; ///< what is taken when the expected was not enough

constexpr std::size_t aligned(std::size_t size) noexcept {
  return (size + kAlignment - 1) / kAlignment * kAlignment;
}

} // namespace

Arena::Hold Arena::make(SlabPool& pool, std::shared_ptr<const void> kept,
                        detail::ChangeMark& changes, std::size_t expected) {
  // The arena itself stands in front of what it hands out.
  const std::size_t size = aligned(sizeof(Arena)) + aligned(expected);
  auto* const memory = static_cast<std::byte*>(pool.take(size));
  Hold arena(new (memory) Arena(pool, std::move(kept), changes));
  arena->m_next = memory + aligned(sizeof(Arena));
  arena->m_end = memory + size;
  return arena;
}

void* Arena::allocate(std::size_t size) {
  size = aligned(size);
  if (static_cast<std::size_t>(m_end - m_next) < size) {
    const std::size_t taken = aligned(sizeof(Further)) + std::max(size, kFurther);
    auto* const further = static_cast<std::byte*>(m_pool.take(taken));
    m_further = new (further) Further{m_further};
    m_next = further + aligned(sizeof(Further));
    m_end = further + taken;
  }
  void* const memory = m_next;
  m_next += size;
  // Nobody else counts yet.
  m_references.store(m_references.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
  return memory;
}

void detail::ArenaRelease::operator()(Arena* arena) const noexcept {
  arena->release();
}

void Arena::release() noexcept {
  if (m_references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    // The arena lies in what may go now, and the pool goes with what keeps it.
    const std::shared_ptr<const void> kept = std::move(m_kept);
    SlabPool& pool = m_pool;
    while (m_further != nullptr) {
      Further* const further = m_further;
      m_further = further->before;
      pool.giveBack(further);
    }
    this->~Arena();
    pool.giveBack(this);
  }
}

} // namespace cardwright
