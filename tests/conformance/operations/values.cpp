// Values of all classes.

#include "cardwright/vcard_gender_value.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_n_value.h"
#include "conformance/dumps/value_class.h"
#include "conformance/dumps/value_dump.h"
#include "conformance/operation_table.h"
#include "conformance/operations/formatter.h"

namespace cardwright::conformance {
namespace {

Json valueWithType(std::optional<TextView> type) {
  const std::shared_ptr<VCardValue> value = VCardValue::valueWithType(type);
  return value == nullptr ? Json()
                          : objectToJson("class", valueClassOf(*value).name, "type", value->type());
}

Json parsedValue(TextView className, std::optional<TextView> type, TextView text,
                 VersionCode version, bool quotedPrintable, std::optional<TextView> charset) {
  const std::shared_ptr<VCardValue> value = emptyValue(className, type);
  value->setQuotedPrintable(quotedPrintable);
  value->setCharset(charset);
  DateFormatter formatter = newFormatter();
  const bool ok = value->parse(text, version, &formatter);
  return objectToJson("ok", ok, "value", valueToJson(*value));
}

Text generatedValue(const VCardValue& value, VersionCode version) {
  return generatedText(value, version);
}

Json genderParsedTwice(TextView first, TextView second) {
  VCardGenderValue value;
  DateFormatter formatter = newFormatter();
  Json ok(rapidjson::kArrayType);
  for (const TextView text : {first, second}) {
    ok.PushBack(toJson(value.parse(text, 0, &formatter)), jsonAllocator());
  }
  return objectToJson("ok", std::move(ok), "value", valueToJson(value));
}

bool isEmptyName(const VCardNValue& value) {
  return value.isEmpty();
}

Json withTextValues(VCardMultiValue& value, const TextList& texts) {
  value.addTextValues(texts);
  return valueToJson(value);
}

const OperationFamily kValues([](OperationTable& table) {
  table.add("VCardValue::valueWithType", valueWithType);
  table.add("VCardValue::parse", parsedValue);
  table.add("VCardValue::generate", generatedValue);
  table.add("VCardGenderValue::parse/twice", genderParsedTwice);
  table.add("VCardNValue::isEmpty", isEmptyName);
  table.add("VCardMultiValue::addTextValues", withTextValues);
});

} // namespace
} // namespace cardwright::conformance
