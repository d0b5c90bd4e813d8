#pragma once

#include <cstddef>
#include <mutex>

namespace cardwright {

/// Hands out memory from large slabs, each of which goes when all that was taken from it has been
/// given back, or else with the pool. May be used by several threads.
class SlabPool {
 public:
  SlabPool() = default;
  SlabPool(const SlabPool&) = delete;
  SlabPool& operator=(const SlabPool&) = delete;
  ~SlabPool();

  /// Memory of this size, which is a multiple of the alignment for anything, and so aligned.
  [[nodiscard]] void* take(std::size_t size);
  /// Gives back what was taken.
  void giveBack(void* memory) noexcept;

 private:
  struct Slab {
    Slab* before;
    Slab* after;
    std::size_t taken; ///< pieces that were not given back
  };

  /// Stands in front of each piece.
  struct Head {
    Slab* slab;
  };

  [[nodiscard]] Slab* addSlab(std::size_t size);
  void removeSlab(Slab* slab) noexcept;
  [[nodiscard]] static void* cut(Slab* slab, std::byte* memory);

  std::mutex m_mutex;
  Slab* m_slabs = nullptr;   ///< the newest
  Slab* m_current = nullptr; ///< that pieces are cut from
  std::byte* m_next = nullptr;
  std::byte* m_end = nullptr;
  std::size_t m_nextSize = std::size_t{8} * 1024; ///< of the next slab; small texts need no more
};

} // namespace cardwright
