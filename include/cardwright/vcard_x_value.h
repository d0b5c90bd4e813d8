#pragma once

#include "cardwright/vcard_text_value.h"

namespace cardwright {

/// A value of a type without a class of its own, such as "boolean" or an extension: kept as text
/// under the type name that it was made with.
class [[gnu::visibility("default")]] VCardXValue final : public VCardTextValue {
 public:
  VCardXValue() = default;

  /// Makes a value that holds the text, without a type name.
  [[nodiscard]] static std::shared_ptr<VCardXValue> valueWithText(std::optional<TextView> text);
  /// Makes an empty value with this type name.
  [[nodiscard]] static std::shared_ptr<VCardXValue> valueWithType(std::optional<TextView> type);

  /// The type name, as it was given; absent when none was.
  [[nodiscard]] std::optional<TextView> type() const noexcept override;
  /// Sets the type name, or takes it away.
  void setType(std::optional<TextView> type) {
    changed();
    m_type.assign(type);
  }

 private:
  friend class VCardMultiValue;

  detail::SharedText m_type;
};

} // namespace cardwright
