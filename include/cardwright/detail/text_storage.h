#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <optional>

namespace cardwright::detail {

/// How the model keeps a text: absent, a copy of its own, or a view of text that outlives it.
/// Absent and empty are different things.
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
    storage.m_sizeAndOwned = text.size() << 1U;
    return storage;
  }

  TextStorage(const TextStorage& other);
  TextStorage(TextStorage && other) noexcept
      : m_data(other.m_data), m_sizeAndOwned(other.m_sizeAndOwned) {
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
    return {m_data, m_sizeAndOwned >> 1U};
  }
  [[nodiscard]] std::optional<TextView> optionalView() const noexcept {
    return isPresent() ? std::optional<TextView>(view()) : std::nullopt;
  }

 private:
  [[nodiscard]] bool isOwned() const noexcept {
    return (m_sizeAndOwned & 1U) != 0;
  }
  void forget() noexcept {
    m_data = nullptr;
    m_sizeAndOwned = 0;
  }
  void release() noexcept {
    if (isOwned()) {
      delete[] m_data;
    }
  }

  const char16_t* m_data = nullptr;
  std::size_t m_sizeAndOwned = 0; ///< the size times two, plus one when the copy is our own
};

} // namespace cardwright::detail
