#include "conformance/dumps/value_class.h"

#include "cardwright/cardwright.h"
#include "conformance/arguments.h"
#include "conformance/dumps/value_dump.h"
#include "conformance/text_notation.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <typeinfo>

namespace cardwright::conformance {
namespace {

[[nodiscard]] std::optional<Text> textField(const Json& fields, const char* name) {
  return ArgumentReader<std::optional<Text>>::read(memberOf(fields, name));
}

// Texts

void fillText(VCardTextValue& value, const Json& fields) {
  value.setText(textField(fields, "text"));
}

Json dumpText(const VCardTextValue& value) {
  return objectToJson("text", value.text());
}

// Lists

void fillMultiValue(VCardMultiValue& value, const Json& fields) {
  VCardValueList elements;
  for (const Json& element : checkedList(memberOf(fields, "values")).GetArray()) {
    if (checkedList(element).Size() != 2) {
      throw CaseError("no element of a list: " + textOfJson(element));
    }
    const std::shared_ptr<VCardValue> made = emptyValue(textFromJson(element[0]), value.type());
    valueClassOf(*made).fill(*made, element[1]);
    elements.push_back(made);
  }
  if (!elements.empty()) {
    value.setValues(std::move(elements));
  }
}

Json dumpMultiValue(const VCardMultiValue& value) {
  return objectToJson(
      "element", value.type(), "values",
      listToJson(value.values().value_or(VCardValueList()), [](const auto& element) {
        Json pair(rapidjson::kArrayType);
        pair.PushBack(toJson(valueClassOf(*element).name), jsonAllocator());
        pair.PushBack(valueFieldsToJson(*element), jsonAllocator());
        return pair;
      }));
}

// Structured values

using Slots = std::vector<std::optional<TextList>>;

[[nodiscard]] Slots slotsFromJson(const Json& fields, std::size_t count) {
  Slots slots = ArgumentReader<Slots>::read(memberOf(fields, "slots"));
  if (slots.size() != count) {
    throw CaseError("not " + std::to_string(count) + " slots: " + textOfJson(fields));
  }
  return slots;
}

[[nodiscard]] Json slotsToJson(const Slots& slots) {
  return objectToJson("slots", slots);
}

void fillName(VCardNValue& value, const Json& fields) {
  Slots slots = slotsFromJson(fields, 5);
  value.setLast(slots[0]);
  value.setFirst(slots[1]);
  value.setMiddle(slots[2]);
  value.setPrefix(slots[3]);
  value.setSuffix(slots[4]);
}

Json dumpName(const VCardNValue& value) {
  return slotsToJson({value.last(), value.first(), value.middle(), value.prefix(), value.suffix()});
}

void fillAddress(VCardAddressValue& value, const Json& fields) {
  Slots slots = slotsFromJson(fields, 7);
  value.setPoBox(slots[0]);
  value.setExtended(slots[1]);
  value.setStreet(slots[2]);
  value.setLocality(slots[3]);
  value.setRegion(slots[4]);
  value.setPostalCode(slots[5]);
  value.setCountry(slots[6]);
}

Json dumpAddress(const VCardAddressValue& value) {
  return slotsToJson({value.poBox(), value.extended(), value.street(), value.locality(),
                      value.region(), value.postalCode(), value.country()});
}

void fillOrganisation(VCardOrgValue& value, const Json& fields) {
  value.setParts(ArgumentReader<TextList>::read(memberOf(fields, "parts")));
}

Json dumpOrganisation(const VCardOrgValue& value) {
  return objectToJson("parts", value.parts());
}

void fillGender(VCardGenderValue& value, const Json& fields) {
  value.setSex(textField(fields, "sex"));
  value.setIdentity(textField(fields, "identity"));
}

Json dumpGender(const VCardGenderValue& value) {
  return objectToJson("sex", value.sex(), "identity", value.identity());
}

void fillCustom(VCardCustomValue& value, const Json& fields) {
  value.setLabel(textField(fields, "label"));
  value.setValue(textField(fields, "value"));
}

Json dumpCustom(const VCardCustomValue& value) {
  return objectToJson("label", value.label(), "value", value.value());
}

// Positions

[[nodiscard]] double degreesField(const Json& fields, const char* name) {
  const std::string digits = utf8FromText(textFromJson(memberOf(fields, name)));
  char* end = nullptr;
  const double degrees = std::strtod(digits.c_str(), &end);
  if (end == digits.c_str() || *end != '\0') {
    throw CaseError("no degrees: " + digits);
  }
  return degrees;
}

[[nodiscard]] Json degreesToJson(double degrees) {
  std::array<char, 400> digits{};
  const int length = std::snprintf(digits.data(), digits.size(), "%.6f", degrees);
  return asciiToJson({digits.data(), static_cast<std::size_t>(length)});
}

void fillPosition(VCardGeoValue& value, const Json& fields) {
  value.setLatitude(degreesField(fields, "lat"));
  value.setLongitude(degreesField(fields, "lon"));
}

Json dumpPosition(const VCardGeoValue& value) {
  return objectToJson("lat", degreesToJson(value.latitude()), "lon",
                      degreesToJson(value.longitude()));
}

// Dates and offsets

[[nodiscard]] std::optional<TimeZone> zoneFromJson(const Json& zone) {
  if (zone.IsNull()) {
    return std::nullopt;
  }
  if (zone.IsString() && textFromJson(zone) == u"Z") {
    return TimeZone::universal();
  }
  const auto offset = TimeZone::withSecondsFromUtc(signedFromJson(zone));
  if (!offset) {
    throw CaseError("no zone: " + textOfJson(zone));
  }
  return offset;
}

[[nodiscard]] DateComponents componentsFromJson(const Json& fields) {
  using Field = ArgumentReader<std::optional<std::int64_t>>;
  return {.year = Field::read(memberOf(fields, "year")),
          .month = Field::read(memberOf(fields, "month")),
          .day = Field::read(memberOf(fields, "day")),
          .hour = Field::read(memberOf(fields, "hour")),
          .minute = Field::read(memberOf(fields, "minute")),
          .second = Field::read(memberOf(fields, "second")),
          .timeZone = zoneFromJson(memberOf(fields, "zone"))};
}

void fillDateTime(VCardDateTimeValue& value, const Json& fields) {
  value.setComps(componentsFromJson(memberOf(fields, "comps")));
}

Json dumpDateTime(const VCardDateTimeValue& value) {
  return objectToJson("comps", componentsToJson(value.comps()));
}

void fillOffset(VCardUTCOffsetValue& value, const Json& fields) {
  value.setOffset(signedFromJson(memberOf(fields, "offset")));
}

Json dumpOffset(const VCardUTCOffsetValue& value) {
  return objectToJson("offset", value.offset());
}

// The table

template <typename Value>
std::shared_ptr<VCardValue> makeValue(std::optional<TextView> /*type*/) {
  return std::make_shared<Value>();
}

template <typename Value>
std::shared_ptr<VCardValue> makeValueWithType(std::optional<TextView> type) {
  return Value::valueWithType(type);
}

template <typename Value, auto fill, auto dump>
[[nodiscard]] constexpr ValueClass valueClass(TextView name,
                                              decltype(ValueClass::make) make = makeValue<Value>) {
  return {name, [](const VCardValue& value) { return typeid(value) == typeid(Value); }, make,
          [](VCardValue& value, const Json& fields) { fill(static_cast<Value&>(value), fields); },
          [](const VCardValue& value) { return dump(static_cast<const Value&>(value)); }};
}

constexpr std::array kValueClasses{
    valueClass<VCardTextValue, fillText, dumpText>(u"VCardTextValue"),
    valueClass<VCardURIValue, fillText, dumpText>(u"VCardURIValue"),
    valueClass<VCardXValue, fillText, dumpText>(u"VCardXValue", makeValueWithType<VCardXValue>),
    valueClass<VCardMultiValue, fillMultiValue, dumpMultiValue>(u"VCardMultiValue",
                                                                makeValueWithType<VCardMultiValue>),
    valueClass<VCardNValue, fillName, dumpName>(u"VCardNValue"),
    valueClass<VCardAddressValue, fillAddress, dumpAddress>(u"VCardAddressValue"),
    valueClass<VCardOrgValue, fillOrganisation, dumpOrganisation>(u"VCardOrgValue"),
    valueClass<VCardGenderValue, fillGender, dumpGender>(u"VCardGenderValue"),
    valueClass<VCardCustomValue, fillCustom, dumpCustom>(u"VCardCustomValue"),
    valueClass<VCardGeoValue, fillPosition, dumpPosition>(u"VCardGeoValue"),
    valueClass<VCardDateTimeValue, fillDateTime, dumpDateTime>(
        u"VCardDateTimeValue", makeValueWithType<VCardDateTimeValue>),
    valueClass<VCardUTCOffsetValue, fillOffset, dumpOffset>(u"VCardUTCOffsetValue"),
};

} // namespace

const ValueClass& valueClassNamed(TextView name) {
  for (const ValueClass& valueClass : kValueClasses) {
    if (valueClass.name == name) {
      return valueClass;
    }
  }
  throw CaseError("no class of values: " + notationFromText(name));
}

const ValueClass& valueClassOf(const VCardValue& value) {
  for (const ValueClass& valueClass : kValueClasses) {
    if (valueClass.isClassOf(value)) {
      return valueClass;
    }
  }
  throw std::logic_error(std::string("a value of a class without dumps: ") + typeid(value).name());
}

} // namespace cardwright::conformance
