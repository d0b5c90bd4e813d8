#pragma once

#include "cardwright/detail/card_lines.h"
#include "cardwright/detail/change_mark.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <utility>

namespace cardwright {

class SlabPool;

/// Memory for objects that are made together, such as those of a card, cut from a pool that lives
/// as long as any of them, and given back to it when the last has gone. One thread allocates,
/// before any other knows the objects; each may then be let go by any thread. Tells a mark of
/// changes of what is made in it.
class Arena : public detail::ChangeMarker {
 public:
  /// How its maker holds an arena.
  using Hold = detail::ArenaHold;

  Arena(const Arena&) = delete;
  Arena& operator=(const Arena&) = delete;

  /// @param pool     where the memory comes from
  /// @param kept     keeps the pool alive, and is kept by the objects
  /// @param changes  the mark; kept alive likewise
  /// @param expected how many bytes will be needed, roughly
  [[nodiscard]] static Hold make(SlabPool& pool, std::shared_ptr<const void> kept,
                                 detail::ChangeMark& changes, std::size_t expected);

  /// Memory for one object, aligned for anything. Holds the arena until it is let go.
  [[nodiscard]] void* allocate(std::size_t size);
  /// Makes an object tell the arena when it is changed, if it can.
  template <typename Object>
  void watch(Object& object) noexcept {
    if constexpr (requires { object.m_changes; }) {
      object.m_changes = this;
    }
  }
  /// The arena that watches an object; null for none.
  template <typename Object>
  [[nodiscard]] static Arena* of(const Object& object) noexcept {
    return static_cast<Arena*>(object.m_changes);
  }

  /// Lets one object go, or the maker's hold.
  void release() noexcept;

 private:
  Arena(SlabPool& pool, std::shared_ptr<const void> kept, detail::ChangeMark& changes) noexcept
      : ChangeMarker(changes), m_pool(pool), m_kept(std::move(kept)) {}
  ~Arena() = default;

  /// Stands in front of the memory that was taken when the first was not enough.
  struct Further {
    Further* before;
  };

  std::atomic<std::size_t> m_references = 1;
  SlabPool& m_pool;
  std::shared_ptr<const void> m_kept;
  std::byte* m_next = nullptr;
  std::byte* m_end = nullptr;
  Further* m_further = nullptr; ///< the newest
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
  if (arena == nullptr) {
    return std::make_shared<T>();
  }
  auto object = std::allocate_shared<T>(ArenaAllocator<T>(arena));
  arena->watch(*object);
  return object;
}

} // namespace cardwright
