#include "support/card_model.h"

#include "cardwright/utf8.h"
#include "cardwright/vcard_address_value.h"
#include "cardwright/vcard_custom_value.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_gender_value.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_org_value.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "cardwright/vcard_x_value.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <typeindex>

namespace cardwright {

namespace {

std::optional<Text> copied(std::optional<TextView> text) {
  return text ? std::optional<Text>(*text) : std::nullopt;
}

/// One slot for a text that may be absent.
std::optional<TextList> slotOf(std::optional<TextView> text) {
  return text ? std::optional<TextList>(TextList{Text(*text)}) : std::nullopt;
}

void fillText(ValueModel& model, const VCardValue& value) {
  model.texts = {slotOf(static_cast<const VCardTextValue&>(value).text())};
}

void fillList(ValueModel& model, const VCardValue& value) {
  for (const auto& element :
       static_cast<const VCardMultiValue&>(value).values().value_or(VCardValueList{})) {
    model.elements.push_back(modelOf(*element));
  }
}

void fillName(ValueModel& model, const VCardValue& value) {
  const auto& name = static_cast<const VCardNValue&>(value);
  model.texts = {name.last(), name.first(), name.middle(), name.prefix(), name.suffix()};
}

void fillAddress(ValueModel& model, const VCardValue& value) {
  const auto& address = static_cast<const VCardAddressValue&>(value);
  model.texts = {address.poBox(),  address.extended(),   address.street(), address.locality(),
                 address.region(), address.postalCode(), address.country()};
}

void fillOrganisation(ValueModel& model, const VCardValue& value) {
  model.texts = {static_cast<const VCardOrgValue&>(value).parts()};
}

void fillGender(ValueModel& model, const VCardValue& value) {
  const auto& gender = static_cast<const VCardGenderValue&>(value);
  model.texts = {slotOf(gender.sex()), slotOf(gender.identity())};
}

void fillPosition(ValueModel& model, const VCardValue& value) {
  const auto& position = static_cast<const VCardGeoValue&>(value);
  model.latitude = position.latitude();
  model.longitude = position.longitude();
}

void fillLabelled(ValueModel& model, const VCardValue& value) {
  const auto& custom = static_cast<const VCardCustomValue&>(value);
  model.texts = {slotOf(custom.label()), slotOf(custom.value())};
}

void fillDate(ValueModel& model, const VCardValue& value) {
  model.date = static_cast<const VCardDateTimeValue&>(value).comps();
}

void fillOffset(ValueModel& model, const VCardValue& value) {
  model.offset = static_cast<const VCardUTCOffsetValue&>(value).offset();
}

void fillNothing(ValueModel& /*model*/, const VCardValue& /*value*/) {}

struct ClassRow {
  ValueClass valueClass;
  std::type_index type;
  void (*fill)(ValueModel& model, const VCardValue& value);
};

const ClassRow& rowOf(const VCardValue& value) {
  static const std::array<ClassRow, 13> kRows = {{
      {ValueClass::base, typeid(VCardValue), fillNothing},
      {ValueClass::text, typeid(VCardTextValue), fillText},
      {ValueClass::uri, typeid(VCardURIValue), fillText},
      {ValueClass::extension, typeid(VCardXValue), fillText},
      {ValueClass::list, typeid(VCardMultiValue), fillList},
      {ValueClass::name, typeid(VCardNValue), fillName},
      {ValueClass::address, typeid(VCardAddressValue), fillAddress},
      {ValueClass::organisation, typeid(VCardOrgValue), fillOrganisation},
      {ValueClass::gender, typeid(VCardGenderValue), fillGender},
      {ValueClass::position, typeid(VCardGeoValue), fillPosition},
      {ValueClass::labelled, typeid(VCardCustomValue), fillLabelled},
      {ValueClass::date, typeid(VCardDateTimeValue), fillDate},
      {ValueClass::utcOffset, typeid(VCardUTCOffsetValue), fillOffset},
  }};
  const std::type_index type = typeid(value);
  const auto row = std::find_if(kRows.begin(), kRows.end(), [type](const ClassRow& candidate) {
    return candidate.type == type;
  });
  return row == kRows.end() ? kRows.front() : *row;
}

/// Printable ASCII as it is, everything else as \uXXXX.
std::string quoted(TextView text) {
  std::string result = "\"";
  for (const char16_t unit : text) {
    if (unit >= 0x20 && unit < 0x7F && unit != u'"' && unit != u'\\') {
      result.push_back(static_cast<char>(unit));
    } else {
      std::array<char, 8> code{};
      std::snprintf(code.data(), code.size(), "\\u%04X", static_cast<unsigned>(unit));
      result.append(code.data());
    }
  }
  return result.append("\"");
}

std::string quoted(const std::optional<Text>& text) {
  return text ? quoted(TextView(*text)) : "-";
}

std::string quoted(const TextList& texts) {
  std::string result = "[";
  for (const Text& text : texts) {
    result.append(result.size() > 1 ? "," : "").append(quoted(TextView(text)));
  }
  return result.append("]");
}

std::string printed(const DateComponents& date) {
  std::string result;
  for (const auto& field : {date.year, date.month, date.day, date.hour, date.minute, date.second}) {
    result.append(field ? std::to_string(*field) : "-").append(" ");
  }
  if (!date.timeZone) {
    return result.append("no zone");
  }
  return result.append(
      date.timeZone->isUniversal() ? "universal" : std::to_string(date.timeZone->secondsFromUtc()));
}

std::string printed(const ValueModel& value) {
  std::string result = "class " + std::to_string(static_cast<int>(value.valueClass)) + " type " +
                       quoted(value.type) + (value.quotedPrintable ? " qp" : "") + " charset " +
                       quoted(value.charset) + " texts";
  for (const auto& slot : value.texts) {
    result.append(" ").append(slot ? quoted(*slot) : "-");
  }
  result.append(" position ").append(std::to_string(value.latitude));
  result.append(" ").append(std::to_string(value.longitude));
  result.append(" date ").append(printed(value.date));
  result.append(" offset ").append(std::to_string(value.offset));
  for (const ValueModel& element : value.elements) {
    result.append(" {").append(printed(element)).append("}");
  }
  return result;
}

} // namespace

ValueClass classOf(const VCardValue& value) {
  return rowOf(value).valueClass;
}

ValueModel modelOf(const VCardValue& value) {
  const ClassRow& row = rowOf(value);
  ValueModel model;
  model.valueClass = row.valueClass;
  model.type = copied(value.type());
  model.quotedPrintable = value.quotedPrintable();
  model.charset = copied(value.charset());
  row.fill(model, value);
  return model;
}

PropertyModel modelOf(const VCardProperty& property) {
  PropertyModel model;
  model.group = copied(property.group());
  model.name = property.name();
  for (const auto& [key, parameter] : property.parameterDict().value_or(VCardParameterDict{})) {
    model.parameters[key] = {Text(parameter->name()), parameter->values()};
  }
  if (property.value() != nullptr) {
    model.value = modelOf(*property.value());
  }
  return model;
}

CardModel modelOf(const VCard& card) {
  CardModel model;
  for (const auto& [key, list] : card.propertyDict()) {
    for (const auto& property : *list) {
      model[key].push_back(modelOf(*property));
    }
  }
  return model;
}

std::string printed(const PropertyModel& property) {
  std::string result = quoted(property.group) + " . " + quoted(TextView(property.name));
  for (const auto& [key, parameter] : property.parameters) {
    result.append("; ").append(quoted(TextView(key))).append(" ");
    result.append(quoted(TextView(parameter.name))).append(" = ").append(quoted(parameter.values));
  }
  return result.append(" : ").append(property.value ? printed(*property.value) : "no value");
}

std::string differences(const CardModel& expected, const CardModel& actual) {
  std::string result;
  CardModel keys = expected;
  keys.insert(actual.begin(), actual.end());
  const std::vector<PropertyModel> none;
  for (const auto& entry : keys) {
    const auto wanted = expected.find(entry.first);
    const auto found = actual.find(entry.first);
    const auto& before = wanted == expected.end() ? none : wanted->second;
    const auto& after = found == actual.end() ? none : found->second;
    for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
      if (i < before.size() && i < after.size() && before[i] == after[i]) {
        continue;
      }
      result.append("expected ").append(i < before.size() ? printed(before[i]) : "nothing");
      result.append("\n     got ").append(i < after.size() ? printed(after[i]) : "nothing");
      result.append("\n");
    }
  }
  return result;
}

} // namespace cardwright
