#pragma once

#include "cardwright/date_components.h"
#include "cardwright/vcard_value.h"
#include "conformance/arguments.h"
#include "conformance/json.h"

#include <memory>
#include <optional>

namespace cardwright::conformance {

// Values as cases write them: {"class", "type", "qp", "charset", "value"}.

/// A value with its class, type and flags.
[[nodiscard]] Json valueToJson(const VCardValue& value);
/// Only the fields of its class.
[[nodiscard]] Json valueFieldsToJson(const VCardValue& value);
[[nodiscard]] Json componentsToJson(const DateComponents& components);

/// An empty value of a class; the type name matters to the classes that keep one.
[[nodiscard]] std::shared_ptr<VCardValue> emptyValue(TextView className,
                                                     std::optional<TextView> type);
[[nodiscard]] std::shared_ptr<VCardValue> valueFromJson(const Json& dump);
/// The value that a dump describes, of a class that the operation needs.
template <typename Value>
[[nodiscard]] std::shared_ptr<Value> valueOfClassFromJson(const Json& dump) {
  auto value = std::dynamic_pointer_cast<Value>(valueFromJson(dump));
  if (value == nullptr) {
    throw CaseError("a value of another class: " + textOfJson(dump));
  }
  return value;
}

template <std::derived_from<VCardValue> Value>
struct ArgumentReader<Value> {
  [[nodiscard]] static std::shared_ptr<Value> read(const Json& dump) {
    return valueOfClassFromJson<Value>(dump);
  }
};

} // namespace cardwright::conformance
