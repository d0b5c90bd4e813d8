#pragma once

#include "cardwright/vcard.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_parameter.h"
#include "cardwright/vcard_property.h"

namespace cardwright {

/// What objects hold, without the copies that their public operations make of it.
struct StoredParts {
  using Properties = detail::KeyedList<std::shared_ptr<VCardPropertyList>>;
  using Parameters = detail::KeyedList<std::shared_ptr<VCardParameter>>;

  [[nodiscard]] static const Properties& of(const VCard& card) { return card.properties(); }
  [[nodiscard]] static const Parameters& of(const VCardProperty& property) noexcept {
    return property.m_parameters;
  }
  [[nodiscard]] static const VCardValue* valueOf(const VCardProperty& property) noexcept {
    return property.m_value.get();
  }
  [[nodiscard]] static const detail::TextSequence& of(const VCardParameter& parameter) noexcept {
    return parameter.m_values;
  }
  [[nodiscard]] static const std::optional<VCardValueList>&
  of(const VCardMultiValue& value) noexcept {
    return value.m_values;
  }
  /// The lines that a card was read from, if nobody has changed it since.
  [[nodiscard]] static const detail::CardLines* unchangedLinesOf(const VCard& card) noexcept {
    return card.isUnchanged() ? &card.m_lines : nullptr;
  }
  static void fetch(const VCard& card) { VCard::fetchProperties(card.properties()); }
};

} // namespace cardwright
