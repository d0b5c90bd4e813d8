#include "base/arena.h"

#include <algorithm>
#include <new>

namespace cardwright {

namespace {

constexpr std::size_t kAlignment = alignof(std::max_align_t);
constexpr std::size_t kSmallestBlock = 512;
constexpr std::size_t kLargestBlock = std::size_t{64} * 1024;

constexpr std::size_t aligned(std::size_t size) noexcept {
  return (size + kAlignment - 1) / kAlignment * kAlignment;
}

} // namespace

Arena* Arena::make(std::size_t expected, std::shared_ptr<const void> kept) {
  std::unique_ptr<Arena, ArenaHold::Release> arena(new Arena(std::move(kept)));
  arena->addBlock(std::clamp(expected, kSmallestBlock, kLargestBlock));
  return arena.release();
}

Arena::~Arena() {
  while (m_blocks != nullptr) {
    Block* const before = m_blocks->before;
    ::operator delete(m_blocks);
    m_blocks = before;
  }
}

void Arena::addBlock(std::size_t size) {
  auto* const memory = static_cast<std::byte*>(::operator new(aligned(sizeof(Block)) + size));
  m_blocks = new (memory) Block{m_blocks};
  m_next = memory + aligned(sizeof(Block));
  m_end = m_next + size;
}

void* Arena::allocate(std::size_t size) {
  size = aligned(size);
  if (static_cast<std::size_t>(m_end - m_next) < size) {
    addBlock(std::max(size, kLargestBlock / 16));
  }
  void* const memory = m_next;
  m_next += size;
  // Nobody else counts yet.
  m_references.store(m_references.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
  return memory;
}

void Arena::release() noexcept {
  if (m_references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    delete this;
  }
}

} // namespace cardwright
