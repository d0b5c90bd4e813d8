#pragma once

#include "cardwright/vcard.h"
#include "cardwright/vcard_parameter.h"
#include "cardwright/vcard_property.h"
#include "conformance/arguments.h"
#include "conformance/json.h"

#include <memory>
#include <optional>

namespace cardwright::conformance {

// Parameters, properties and cards as cases write them.

/// {"name", "values"}
[[nodiscard]] Json parameterToJson(const VCardParameter& parameter);
/// The same with the key that a property keeps the parameter under.
[[nodiscard]] Json parameterToJson(TextView key, const VCardParameter& parameter);
[[nodiscard]] std::shared_ptr<VCardParameter> parameterFromJson(const Json& dump);

/// The key is the one under which a card would keep the property.
[[nodiscard]] Json propertyToJson(const std::shared_ptr<VCardProperty>& property);
[[nodiscard]] std::shared_ptr<VCardProperty> propertyFromJson(const Json& dump);
[[nodiscard]] Json propertiesToJson(const VCardPropertyList& properties);

/// Null for a null card.
[[nodiscard]] Json cardToJson(const std::shared_ptr<VCard>& card);
[[nodiscard]] std::shared_ptr<VCard> cardFromJson(const Json& dump);

[[nodiscard]] Json instantToJson(std::optional<std::chrono::sys_seconds> instant);

// Operations take references to these where they only look at them, and shared pointers where
// they dump them afterwards.

template <>
struct ArgumentReader<VCardParameter> {
  [[nodiscard]] static std::shared_ptr<VCardParameter> read(const Json& dump) {
    return parameterFromJson(dump);
  }
};
template <>
struct ArgumentReader<VCardProperty> {
  [[nodiscard]] static std::shared_ptr<VCardProperty> read(const Json& dump) {
    return propertyFromJson(dump);
  }
};
template <>
struct ArgumentReader<std::shared_ptr<VCardProperty>> : ArgumentReader<VCardProperty> {};
template <>
struct ArgumentReader<VCard> {
  [[nodiscard]] static std::shared_ptr<VCard> read(const Json& dump) { return cardFromJson(dump); }
};
template <>
struct ArgumentReader<std::shared_ptr<VCard>> : ArgumentReader<VCard> {};

} // namespace cardwright::conformance
