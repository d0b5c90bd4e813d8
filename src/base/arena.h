#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <utility>

namespace cardwright {

/// Memory for objects that are made together and mostly go together, such as those of a card: cut
/// from a few blocks, which are freed with the last of the objects. One thread allocates, before
/// any other knows the objects; each may then be let go by any thread.
class Arena {
 public:
  Arena(const Arena&) = delete;
  Arena& operator=(const Arena&) = delete;

  /// An arena without objects, which its maker holds with one reference.
  /// @param expected how many bytes will be needed, roughly
  /// @param kept     lives as long as the arena
  [[nodiscard]] static Arena* make(std::size_t expected, std::shared_ptr<const void> kept);

  /// Memory for one object, aligned for anything. Holds the arena until it is let go.
  [[nodiscard]] void* allocate(std::size_t size);
  /// Lets one object go, or the maker's hold.
  void release() noexcept;

 private:
  struct Block {
    Block* before;
  };

  explicit Arena(std::shared_ptr<const void> kept) noexcept : m_kept(std::move(kept)) {}
  ~Arena();

  void addBlock(std::size_t size);

  std::atomic<std::size_t> m_references = 1;
  std::shared_ptr<const void> m_kept;
  Block* m_blocks = nullptr;
  std::byte* m_next = nullptr;
  std::byte* m_end = nullptr;
};

/// Holds an arena while objects are made in it.
struct ArenaHold {
  struct Release {
    void operator()(Arena* arena) const noexcept { arena->release(); }
  };
  using Pointer = std::unique_ptr<Arena, Release>;
};

/// Lets standard facilities allocate from an arena.
template <typename T>
class ArenaAllocator {
 public:
  using value_type = T;

  explicit ArenaAllocator(Arena* arena) noexcept : m_arena(arena) {}
  template <typename Other>
  ArenaAllocator(const ArenaAllocator<Other>& other) noexcept // NOLINT: allocators convert
      : m_arena(other.arena()) {}

  [[nodiscard]] T* allocate(std::size_t count) {
    static_assert(alignof(T) <= alignof(std::max_align_t));
    return static_cast<T*>(m_arena->allocate(count * sizeof(T)));
  }
  void deallocate(T* /*memory*/, std::size_t /*count*/) noexcept { m_arena->release(); }

  [[nodiscard]] Arena* arena() const noexcept { return m_arena; }
  template <typename Other>
  friend bool operator==(const ArenaAllocator& a, const ArenaAllocator<Other>& b) noexcept {
    return a.arena() == b.arena();
  }

 private:
  Arena* m_arena;
};

/// Makes an object in an arena, or by itself where there is none.
template <typename T>
[[nodiscard]] std::shared_ptr<T> makeIn(Arena* arena) {
  return arena != nullptr ? std::allocate_shared<T>(ArenaAllocator<T>(arena))
                          : std::make_shared<T>();
}

} // namespace cardwright
