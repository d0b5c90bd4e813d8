#pragma once

#include "cardwright/vcard_value.h"

namespace cardwright {

/// An organisation and its units (RFC 6350, section 6.6.4).
class [[gnu::visibility("default")]] VCardOrgValue final : public VCardValue {
 public:
  VCardOrgValue() = default;

  /// "Org".
  [[nodiscard]] std::optional<TextView> type() const noexcept override;

  /// The organisation and then its units, from large to small; empty when nothing was read or set.
  [[nodiscard]] const TextList& parts() const noexcept {
    return m_parts;
  }
  /// Sets all parts.
  void setParts(TextList parts) {
    changed();
    m_parts = std::move(parts);
  }

  /// Appends one part for each component between unescaped semicolons, empty ones included.
  /// Always true.
  bool parse(TextView text, VersionCode version, DateFormatter * formatter) override;
  /// Writes the parts with ";" between them.
  void generate(Text & output, VersionCode version, DateFormatter * formatter) const override;

 private:
  TextList m_parts;
};

} // namespace cardwright
