#pragma once

#include "cardwright/vcard_value.h"
#include "conformance/json.h"

#include <memory>
#include <optional>

namespace cardwright::conformance {

/// How the values of one class are made, filled from the fields of a dump and dumped.
struct ValueClass {
  TextView name;
  bool (*isClassOf)(const VCardValue& value);
  std::shared_ptr<VCardValue> (*make)(std::optional<TextView> type);
  void (*fill)(VCardValue& value, const Json& fields);
  Json (*dump)(const VCardValue& value);
};

[[nodiscard]] const ValueClass& valueClassNamed(TextView name);
[[nodiscard]] const ValueClass& valueClassOf(const VCardValue& value);

} // namespace cardwright::conformance
