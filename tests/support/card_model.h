#pragma once

#include "cardwright/date_components.h"
#include "cardwright/vcard.h"
#include "cardwright/vcard_property.h"
#include "cardwright/vcard_value.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright {

// Cards as plain data that can be compared, changed and printed.

/// The class of a value.
enum class ValueClass {
  base,
  text,
  uri,
  extension,
  list,
  name,
  address,
  organisation,
  gender,
  position,
  labelled,
  date,
  utcOffset,
};

struct ValueModel {
  ValueClass valueClass = ValueClass::base;
  std::optional<Text> type;
  bool quotedPrintable = false;
  std::optional<Text> charset;
  /// The text of a text value; the slots of a name or an address; the parts of an organisation;
  /// sex and identity; label and value.
  std::vector<std::optional<TextList>> texts;
  double latitude = 0;
  double longitude = 0;
  DateComponents date;
  std::int64_t offset = 0;
  std::vector<ValueModel> elements; ///< of a list

  friend bool operator==(const ValueModel&, const ValueModel&) = default;
};

struct ParameterModel {
  Text name;
  TextList values;

  friend bool operator==(const ParameterModel&, const ParameterModel&) = default;
};

struct PropertyModel {
  std::optional<Text> group;
  Text name;
  std::map<Text, ParameterModel> parameters; ///< by key
  std::optional<ValueModel> value;

  friend bool operator==(const PropertyModel&, const PropertyModel&) = default;
};

/// Properties by key, in stored order within a key.
using CardModel = std::map<Text, std::vector<PropertyModel>>;

[[nodiscard]] ValueClass classOf(const VCardValue& value);
[[nodiscard]] ValueModel modelOf(const VCardValue& value);
[[nodiscard]] PropertyModel modelOf(const VCardProperty& property);
[[nodiscard]] CardModel modelOf(const VCard& card);

[[nodiscard]] std::string printed(const PropertyModel& property);
/// One line for each property that only one of the two has; empty when they are equal.
[[nodiscard]] std::string differences(const CardModel& expected, const CardModel& actual);

} // namespace cardwright
