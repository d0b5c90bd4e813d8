// Date-time values.

#include "cardwright/vcard_date_time_value.h"
#include "conformance/dumps/value_dump.h"
#include "conformance/operation_table.h"

#include <chrono>

namespace cardwright::conformance {
namespace {

Json parsedDate(TextView text) {
  VCardDateTimeValue value;
  value.parseDate(text);
  return componentsToJson(value.comps());
}

Json parsedTime(TextView text) {
  VCardDateTimeValue value;
  value.parseTime(text);
  return componentsToJson(value.comps());
}

Json scannedNumber(TextView text, std::int64_t digits, bool allowOmission) {
  Text rest(text);
  const std::int64_t number = VCardDateTimeValue::scanNumberFromString(rest, digits, allowOmission);
  return objectToJson("result", number, "rest", TextView(rest));
}

Text dateFormat(const VCardDateTimeValue& value, VersionCode version) {
  return value.dateFormatForVersion(version);
}

Json valueWithDate(std::optional<std::int64_t> seconds) {
  std::optional<std::chrono::sys_seconds> date;
  if (seconds) {
    date.emplace(std::chrono::seconds(*seconds));
  }
  const std::shared_ptr<VCardDateTimeValue> value = VCardDateTimeValue::valueWithDate(date);
  return value == nullptr ? Json() : valueToJson(*value);
}

const OperationFamily kDates([](OperationTable& table) {
  table.add("VCardDateTimeValue::parseDate", parsedDate);
  table.add("VCardDateTimeValue::parseTime", parsedTime);
  table.add("VCardDateTimeValue::scanNumberFromString", scannedNumber);
  table.add("VCardDateTimeValue::dateFormatForVersion", dateFormat);
  table.add("VCardDateTimeValue::valueWithDate", valueWithDate);
});

} // namespace
} // namespace cardwright::conformance
