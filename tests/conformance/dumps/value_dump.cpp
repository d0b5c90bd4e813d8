#include "conformance/dumps/value_dump.h"

#include "conformance/dumps/value_class.h"

namespace cardwright::conformance {

Json valueToJson(const VCardValue& value) {
  return objectToJson("class", valueClassOf(value).name, "type", value.type(), "qp",
                      value.quotedPrintable(), "charset", value.charset(), "value",
                      valueFieldsToJson(value));
}

Json valueFieldsToJson(const VCardValue& value) {
  return valueClassOf(value).dump(value);
}

Json componentsToJson(const DateComponents& components) {
  const std::optional<TimeZone>& zone = components.timeZone;
  return objectToJson("year", components.year, "month", components.month, "day", components.day,
                      "hour", components.hour, "minute", components.minute, "second",
                      components.second, "zone",
                      !zone                 ? Json()
                      : zone->isUniversal() ? asciiToJson("Z")
                                            : toJson(zone->secondsFromUtc()));
}

std::shared_ptr<VCardValue> emptyValue(TextView className, std::optional<TextView> type) {
  return valueClassNamed(className).make(type);
}

std::shared_ptr<VCardValue> valueFromJson(const Json& dump) {
  using OptionalText = ArgumentReader<std::optional<Text>>;
  const std::optional<Text> type = OptionalText::read(memberOf(dump, "type"));
  const ValueClass& valueClass = valueClassNamed(textFromJson(memberOf(dump, "class")));
  std::shared_ptr<VCardValue> value = valueClass.make(type);
  value->setQuotedPrintable(booleanFromJson(memberOf(dump, "qp")));
  value->setCharset(OptionalText::read(memberOf(dump, "charset")));
  valueClass.fill(*value, memberOf(dump, "value"));
  return value;
}

} // namespace cardwright::conformance
