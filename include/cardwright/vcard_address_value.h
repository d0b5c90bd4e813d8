#pragma once

#include "cardwright/vcard_value.h"

#include <array>

namespace cardwright {

/// A postal address (RFC 6350, section 6.3.1): seven slots, each a list of texts or absent.
class [[gnu::visibility("default")]] VCardAddressValue final : public VCardValue {
 public:
  using Slot = std::optional<TextList>;

  VCardAddressValue() = default;

  /// "Address".
  [[nodiscard]] std::optional<TextView> type() const noexcept override;

  [[nodiscard]] const Slot& poBox() const noexcept {
    return m_slots[0];
  }
  [[nodiscard]] const Slot& extended() const noexcept {
    return m_slots[1];
  }
  [[nodiscard]] const Slot& street() const noexcept {
    return m_slots[2];
  }
  [[nodiscard]] const Slot& locality() const noexcept {
    return m_slots[3];
  }
  [[nodiscard]] const Slot& region() const noexcept {
    return m_slots[4];
  }
  [[nodiscard]] const Slot& postalCode() const noexcept {
    return m_slots[5];
  }
  [[nodiscard]] const Slot& country() const noexcept {
    return m_slots[6];
  }
  void setPoBox(Slot texts) {
    m_slots[0] = std::move(texts);
  }
  void setExtended(Slot texts) {
    m_slots[1] = std::move(texts);
  }
  void setStreet(Slot texts) {
    m_slots[2] = std::move(texts);
  }
  void setLocality(Slot texts) {
    m_slots[3] = std::move(texts);
  }
  void setRegion(Slot texts) {
    m_slots[4] = std::move(texts);
  }
  void setPostalCode(Slot texts) {
    m_slots[5] = std::move(texts);
  }
  void setCountry(Slot texts) {
    m_slots[6] = std::move(texts);
  }

  /// Reads up to seven components between unescaped semicolons; an empty one leaves its slot as
  /// it is. Text after the seventh is ignored. Always true.
  bool parse(TextView text, VersionCode version, DateFormatter * formatter) override;
  /// Writes all seven slots.
  void generate(Text & output, VersionCode version, DateFormatter * formatter) const override;

 private:
  std::array<Slot, 7> m_slots;
};

} // namespace cardwright
