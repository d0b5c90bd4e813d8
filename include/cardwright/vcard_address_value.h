#pragma once

#include "cardwright/vcard_value.h"

#include <array>

namespace cardwright {

/// A postal address (RFC 6350, section 6.3.1): seven slots, each a list of texts or absent.
class [[gnu::visibility("default")]] VCardAddressValue final : public VCardValue {
 public:
  /// A component: absent when nothing stood in its place, which an empty text is not.
  using Slot = std::optional<TextList>;

  VCardAddressValue() = default;

  /// "Address".
  [[nodiscard]] std::optional<TextView> type() const noexcept override;

  /// Post office box.
  [[nodiscard]] const Slot& poBox() const noexcept {
    return m_slots[0];
  }
  /// Flat, floor or house name.
  [[nodiscard]] const Slot& extended() const noexcept {
    return m_slots[1];
  }
  /// Street and number.
  [[nodiscard]] const Slot& street() const noexcept {
    return m_slots[2];
  }
  /// Town.
  [[nodiscard]] const Slot& locality() const noexcept {
    return m_slots[3];
  }
  /// State, province or canton.
  [[nodiscard]] const Slot& region() const noexcept {
    return m_slots[4];
  }
  /// Postal code.
  [[nodiscard]] const Slot& postalCode() const noexcept {
    return m_slots[5];
  }
  /// Country.
  [[nodiscard]] const Slot& country() const noexcept {
    return m_slots[6];
  }
  /// Sets poBox().
  void setPoBox(Slot texts) {
    changed();
    m_slots[0] = std::move(texts);
  }
  /// Sets extended().
  void setExtended(Slot texts) {
    changed();
    m_slots[1] = std::move(texts);
  }
  /// Sets street().
  void setStreet(Slot texts) {
    changed();
    m_slots[2] = std::move(texts);
  }
  /// Sets locality().
  void setLocality(Slot texts) {
    changed();
    m_slots[3] = std::move(texts);
  }
  /// Sets region().
  void setRegion(Slot texts) {
    changed();
    m_slots[4] = std::move(texts);
  }
  /// Sets postalCode().
  void setPostalCode(Slot texts) {
    changed();
    m_slots[5] = std::move(texts);
  }
  /// Sets country().
  void setCountry(Slot texts) {
    changed();
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
