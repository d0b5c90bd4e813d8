#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <optional>

namespace cardwright::detail {

/// How the model keeps a text: absent, a copy of its own, a view of text that outlives everything,
/// or a view that is lent to it: of text that outlives the object it is part of. Absent and empty
/// are different things.
class [[gnu::visibility("default")]] TextStorage {
 public:
  constexpr TextStorage() noexcept = default;

  /// Keeps a copy.
  explicit TextStorage(TextView text) {
    assign(text);
  }
  explicit TextStorage(std::optional<TextView> text) {
    assign(text);
  }

  /// Keeps the view itself; the text must outlive this object and all its copies.
  [[nodiscard]] static TextStorage borrow(TextView text) noexcept {
    TextStorage storage;
    storage.m_data = text.empty() ? u"" : text.data();
    storage.m_sizeAndKind = text.size() << 2U;
    return storage;
  }

  /// Keeps the view itself; the text must outlive this object. Its copies are copies of the text.
  [[nodiscard]] static TextStorage lend(TextView text) noexcept {
    TextStorage storage = borrow(text);
    storage.m_sizeAndKind |= text.empty() ? 0U : kLent;
    return storage;
  }

  TextStorage(const TextStorage& other);
  TextStorage(TextStorage && other) noexcept
      : m_data(other.m_data), m_sizeAndKind(other.m_sizeAndKind) {
    other.forget();
  }
  TextStorage& operator=(const TextStorage& other);
  TextStorage& operator=(TextStorage&& other) noexcept;
  ~TextStorage() {
    release();
  }

  /// Copies first and lets go afterwards, so the argument may lie inside this storage.
  void assign(TextView text);
  void assign(std::optional<TextView> text);

  [[nodiscard]] bool isPresent() const noexcept {
    return m_data != nullptr;
  }
  /// Empty when absent.
  [[nodiscard]] TextView view() const noexcept {
    return {m_data, m_sizeAndKind >> 2U};
  }
  [[nodiscard]] std::optional<TextView> optionalView() const noexcept {
    return isPresent() ? std::optional<TextView>(view()) : std::nullopt;
  }

 private:
  static constexpr std::size_t kOwned = 1;
  static constexpr std::size_t kLent = 2;

  [[nodiscard]] bool isOwned() const noexcept {
    return (m_sizeAndKind & kOwned) != 0;
  }
  [[nodiscard]] bool isLent() const noexcept {
    return (m_sizeAndKind & kLent) != 0;
  }
  void forget() noexcept {
    m_data = nullptr;
    m_sizeAndKind = 0;
  }
  void release() noexcept {
    if (isOwned()) {
      delete[] m_data;
    }
  }

  const char16_t* m_data = nullptr;
  std::size_t m_sizeAndKind = 0; ///< the size times four, and whose the text is
};

} // namespace cardwright::detail
