#pragma once

#include "cardwright/detail/text_storage.h"
#include "cardwright/vcard_value.h"

namespace cardwright {

/// A text, such as that of FN or NOTE (RFC 6350, section 4.1).
class [[gnu::visibility("default")]] VCardTextValue : public VCardValue {
 public:
  VCardTextValue() = default;

  /// Makes a value that holds the text.
  [[nodiscard]] static std::shared_ptr<VCardTextValue> valueWithText(std::optional<TextView> text);

  /// "text".
  [[nodiscard]] std::optional<TextView> type() const noexcept override;

  /// The decoded text; absent when nothing was read or set.
  [[nodiscard]] std::optional<TextView> text() const noexcept {
    return m_text.optionalView();
  }
  /// Sets the text, or takes it away.
  void setText(std::optional<TextView> text) {
    changed();
    m_text.assign(text);
  }

  /// Decodes the whole text. Always true.
  bool parse(TextView text, VersionCode version, DateFormatter * formatter) override;
  /// Writes the text escaped; semicolons are escaped for version 3 only.
  void generate(Text & output, VersionCode version, DateFormatter * formatter) const override;

 private:
  detail::TextStorage m_text;
};

} // namespace cardwright
