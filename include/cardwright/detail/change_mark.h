#pragma once

#include <atomic>

namespace cardwright::detail {

/// Tells whether any of the objects that were read together has been changed since. Each object of
/// a card may be used by a thread of its own, so several may set the mark at once.
class ChangeMark {
 public:
  void set() noexcept { m_isSet.store(true, std::memory_order_relaxed); }
  /// For whoever made the objects, before anybody else knows them.
  void clear() noexcept { m_isSet.store(false, std::memory_order_relaxed); }
  [[nodiscard]] bool isSet() const noexcept { return m_isSet.load(std::memory_order_relaxed); }

 private:
  std::atomic<bool> m_isSet = false;
};

/// How the objects know their mark, which lies beside those of other cards.
class ChangeMarker {
 public:
  explicit ChangeMarker(ChangeMark& mark) noexcept : m_mark(mark) {}
  void setMark() noexcept { m_mark.set(); }

 private:
  ChangeMark& m_mark;
};

} // namespace cardwright::detail
