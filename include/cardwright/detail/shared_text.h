#pragma once

#include "cardwright/text.h"

#include <memory>
#include <optional>

namespace cardwright::detail {

/// How objects keep a text that many of them may have in common: a copy of this copies no text.
class SharedText {
 public:
  SharedText() = default;
  explicit SharedText(std::optional<TextView> text) { assign(text); }

  void assign(std::optional<TextView> text) {
    m_text = text ? std::make_shared<const Text>(*text) : nullptr;
  }

  [[nodiscard]] std::optional<TextView> optionalView() const noexcept {
    return m_text != nullptr ? std::optional<TextView>(*m_text) : std::nullopt;
  }

 private:
  std::shared_ptr<const Text> m_text;
};

} // namespace cardwright::detail
