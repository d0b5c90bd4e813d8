#pragma once

#include "cardwright/detail/text_storage.h"
#include "cardwright/vcard_value.h"

namespace cardwright {

/// A label and a value in one text, joined by "-=+=-", as X-CUSTOM properties carry them.
class [[gnu::visibility("default")]] VCardCustomValue final : public VCardValue {
 public:
  VCardCustomValue() = default;

  /// What stands before "-=+=-"; absent without it.
  [[nodiscard]] std::optional<TextView> label() const noexcept {
    return m_label.optionalView();
  }
  /// Sets the label, or takes it away.
  void setLabel(std::optional<TextView> label) {
    changed();
    m_label.assign(label);
  }
  /// What stands behind "-=+=-", or the whole text; absent when nothing was read or set.
  [[nodiscard]] std::optional<TextView> value() const noexcept {
    return m_value.optionalView();
  }
  /// Sets the value, or takes it away.
  void setValue(std::optional<TextView> value) {
    changed();
    m_value.assign(value);
  }

  /// Splits the decoded text; one piece is a value without label, a third piece is dropped.
  /// Always true.
  bool parse(TextView text, VersionCode version, DateFormatter * formatter) override;
  /// Writes the label, "-=+=-" and the value, or the value alone without a label.
  void generate(Text & output, VersionCode version, DateFormatter * formatter) const override;

 private:
  detail::TextStorage m_label;
  detail::TextStorage m_value;
};

} // namespace cardwright
