#pragma once

#include "cardwright/vcard_text_value.h"

namespace cardwright {

/// A URI (RFC 6350, section 4.2), kept and written as text.
class [[gnu::visibility("default")]] VCardURIValue final : public VCardTextValue {
 public:
  VCardURIValue() = default;

  /// Makes a value that holds the text.
  [[nodiscard]] static std::shared_ptr<VCardURIValue> valueWithText(std::optional<TextView> text);

  /// "uri".
  [[nodiscard]] std::optional<TextView> type() const noexcept override;
};

} // namespace cardwright
