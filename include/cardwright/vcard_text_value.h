#pragma once

#include "cardwright/detail/text_storage.h"
#include "cardwright/vcard_value.h"

namespace cardwright {

/// A text, such as that of FN or NOTE (RFC 6350, section 4.1).
class [[gnu::visibility("default")]] VCardTextValue : public VCardValue {
 public:
  VCardTextValue() = default;

  [[nodiscard]] static std::shared_ptr<VCardTextValue> valueWithText(std::optional<TextView> text);

  /// "text".
  [[nodiscard]] std::optional<TextView> type() const noexcept override;

  [[nodiscard]] std::optional<TextView> text() const noexcept {
    return m_text.optionalView();
  }
  void setText(std::optional<TextView> text) {
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
