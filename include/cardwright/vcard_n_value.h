#pragma once

#include "cardwright/vcard_value.h"

#include <array>

namespace cardwright {

/// A structured name (RFC 6350, section 6.2.2): five slots, each a list of texts or absent.
class [[gnu::visibility("default")]] VCardNValue final : public VCardValue {
 public:
  /// A component: absent when nothing stood in its place, which an empty text is not.
  using Slot = std::optional<TextList>;

  VCardNValue() = default;

  /// "N".
  [[nodiscard]] std::optional<TextView> type() const noexcept override;

  /// Family names.
  [[nodiscard]] const Slot& last() const noexcept {
    return m_slots[0];
  }
  /// Given names.
  [[nodiscard]] const Slot& first() const noexcept {
    return m_slots[1];
  }
  /// Additional names.
  [[nodiscard]] const Slot& middle() const noexcept {
    return m_slots[2];
  }
  /// Honorific prefixes: "Dr."
  [[nodiscard]] const Slot& prefix() const noexcept {
    return m_slots[3];
  }
  /// Honorific suffixes: "Jr."
  [[nodiscard]] const Slot& suffix() const noexcept {
    return m_slots[4];
  }
  /// Sets last().
  void setLast(Slot texts) {
    changed();
    m_slots[0] = std::move(texts);
  }
  /// Sets first().
  void setFirst(Slot texts) {
    changed();
    m_slots[1] = std::move(texts);
  }
  /// Sets middle().
  void setMiddle(Slot texts) {
    changed();
    m_slots[2] = std::move(texts);
  }
  /// Sets prefix().
  void setPrefix(Slot texts) {
    changed();
    m_slots[3] = std::move(texts);
  }
  /// Sets suffix().
  void setSuffix(Slot texts) {
    changed();
    m_slots[4] = std::move(texts);
  }

  /// Whether no slot holds a text, be it an empty one.
  [[nodiscard]] bool isEmpty() const noexcept;

  /// Reads up to five components between unescaped semicolons; an empty one leaves its slot as it
  /// is. Text after the fifth is ignored. Always true.
  bool parse(TextView text, VersionCode version, DateFormatter * formatter) override;
  /// Writes all five slots.
  void generate(Text & output, VersionCode version, DateFormatter * formatter) const override;

 private:
  std::array<Slot, 5> m_slots;
};

} // namespace cardwright
