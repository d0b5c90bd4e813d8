#pragma once

#include <cstddef>
#include <mutex>

namespace cardwright {

/// Hands out memory that is freed all at once, with the pool. May be used by several threads.
class SlabPool {
 public:
  SlabPool() = default;
  SlabPool(const SlabPool&) = delete;
  SlabPool& operator=(const SlabPool&) = delete;
  ~SlabPool();

  /// Memory of this size, which is a multiple of the alignment for anything, and so aligned.
  [[nodiscard]] void* take(std::size_t size);

 private:
  struct Slab {
    Slab* before;
  };

  [[nodiscard]] std::byte* addSlab(std::size_t size);

  std::mutex m_mutex;
  Slab* m_slabs = nullptr;
  std::byte* m_next = nullptr;
  std::byte* m_end = nullptr;
  std::size_t m_nextSize = std::size_t{8} * 1024; ///< of the next slab; small texts need no more
};

} // namespace cardwright
