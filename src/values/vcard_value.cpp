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

/// Which class a value type name selects.
constexpr NameTable kMakers({
    NameRow<ValueMaker>{cVCardValue_Address, make<VCardAddressValue>},
    {cVCardValue_DATE, makeDateTime},
    {cVCardValue_DATE_TIME, makeDateTime},
    {cVCardValue_TIME, makeDateTime},
    {cVCardValue_DATE_AND_OR_TIME, makeDateTime},
    {cVCardValue_TIMESTAMP, makeDateTime},
    {cVCardValue_N, make<VCardNValue>},
    {cVCardValue_TEXT, make<VCardTextValue>},
    {cVCardValue_BINARY, make<VCardTextValue>},
    {cVCardValue_URI, make<VCardURIValue>},
    {cVCardValue_UTC_OFFSET, make<VCardUTCOffsetValue>},
    {cVCardValue_Gender, make<VCardGenderValue>},
    {cVCardValue_Org, make<VCardOrgValue>},
    {cVCardValue_Geo3_0, make<VCardGeoValue>},
    {cVCardValue_Custom, make<VCardCustomValue>},
});

} // namespace

ValueMaker valueMakerFor(TextView type) {
  const auto* row = kMakers.findIgnoringCase(type);
  return row != nullptr ? row->value : nullptr;
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
