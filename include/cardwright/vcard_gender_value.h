#pragma once

#include "cardwright/detail/text_storage.h"
#include "cardwright/vcard_value.h"

namespace cardwright {

/// Sex and gender identity (RFC 6350, section 6.2.7).
class [[gnu::visibility("default")]] VCardGenderValue final : public VCardValue {
 public:
  VCardGenderValue() = default;

  /// "Gender".
  [[nodiscard]] std::optional<TextView> type() const noexcept override;

  /// The sex, such as "F"; absent when nothing was read or set.
  [[nodiscard]] std::optional<TextView> sex() const noexcept {
    return m_sex.optionalView();
  }
  /// Sets the sex, or takes it away.
  void setSex(std::optional<TextView> sex) {
    changed();
    m_sex.assign(sex);
  }
  /// The gender identity; absent when nothing was read or set.
  [[nodiscard]] std::optional<TextView> identity() const noexcept {
    return m_identity.optionalView();
  }
  /// Sets the gender identity, or takes it away.
  void setIdentity(std::optional<TextView> identity) {
    changed();
    m_identity.assign(identity);
  }

  /// Splits at the first ";"; without one the identity is left as it was. Always true.
  bool parse(TextView text, VersionCode version, DateFormatter * formatter) override;
  /// Writes the sex and, if there is one, ";" and the identity.
  void generate(Text & output, VersionCode version, DateFormatter * formatter) const override;

 private:
  detail::TextStorage m_sex;
  detail::TextStorage m_identity;
};

} // namespace cardwright
