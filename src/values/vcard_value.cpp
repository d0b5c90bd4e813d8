#include "cardwright/vcard_value.h"

#include "base/name_table.h"
#include "cardwright/vcard_address_value.h"
#include "cardwright/vcard_custom_value.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_gender_value.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_org_value.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "cardwright/vcard_x_value.h"
#include "cardwright/vocabulary.h"
#include "values/value_maker.h"

namespace cardwright {

namespace {

template <typename Value>
std::shared_ptr<VCardValue> make(TextView /*type*/, Arena* arena) {
  return makeIn<Value>(arena);
}

std::shared_ptr<VCardValue> makeDateTime(TextView type, Arena* arena) {
  auto value = makeIn<VCardDateTimeValue>(arena);
  setTypeOf(*value, type);
  return value;
}

struct Maker {
  ValueClass valueClass;
  ValueMaker make;
};

constexpr Maker kText = {ValueClass::text, make<VCardTextValue>};
constexpr Maker kDateTime = {ValueClass::dateTime, makeDateTime};

/// Which class a value type name selects.
constexpr NameTable kMakers({
    NameRow<Maker>{cVCardValue_Address, {ValueClass::address, make<VCardAddressValue>}},
    {cVCardValue_DATE, kDateTime},
    {cVCardValue_DATE_TIME, kDateTime},
    {cVCardValue_TIME, kDateTime},
    {cVCardValue_DATE_AND_OR_TIME, kDateTime},
    {cVCardValue_TIMESTAMP, kDateTime},
    {cVCardValue_N, {ValueClass::name, make<VCardNValue>}},
    {cVCardValue_TEXT, kText},
    {cVCardValue_BINARY, kText},
    {cVCardValue_URI, {ValueClass::uri, make<VCardURIValue>}},
    {cVCardValue_UTC_OFFSET, {ValueClass::utcOffset, make<VCardUTCOffsetValue>}},
    {cVCardValue_Gender, {ValueClass::gender, make<VCardGenderValue>}},
    {cVCardValue_Org, {ValueClass::organisation, make<VCardOrgValue>}},
    {cVCardValue_Geo3_0, {ValueClass::geo, make<VCardGeoValue>}},
    {cVCardValue_Custom, {ValueClass::custom, make<VCardCustomValue>}},
});

} // namespace

ValueMaker valueMakerFor(TextView type) {
  const auto* row = kMakers.findIgnoringCase(type);
  return row != nullptr ? row->value.make : nullptr;
}

ValueClass valueClassFor(TextView type) {
  const auto* row = kMakers.findIgnoringCase(type);
  return row != nullptr ? row->value.valueClass : ValueClass::extension;
}

std::shared_ptr<VCardValue> VCardValue::valueWithType(std::optional<TextView> type) {
  if (!type) {
    return nullptr;
  }
  return valueWithTypeIn(*type, nullptr);
}

std::shared_ptr<VCardValue> valueWithTypeIn(TextView type, Arena* arena) {
  if (const ValueMaker maker = valueMakerFor(type)) {
    return maker(type, arena);
  }
  auto value = makeIn<VCardXValue>(arena);
  value->setType(type);
  return value;
}

std::optional<TextView> VCardValue::type() const noexcept {
  return std::nullopt;
}

} // namespace cardwright
