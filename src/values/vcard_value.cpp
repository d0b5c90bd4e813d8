#include "cardwright/vcard_value.h"

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
#include "values/value_classes.h"
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

/// What makes the values of a class; null for extensions, which need their name.
ValueMaker makerOf(ValueClass valueClass) noexcept {
  switch (valueClass) {
  case ValueClass::address:
    return make<VCardAddressValue>;
  case ValueClass::custom:
    return make<VCardCustomValue>;
  case ValueClass::dateTime:
    return makeDateTime;
  case ValueClass::gender:
    return make<VCardGenderValue>;
  case ValueClass::geo:
    return make<VCardGeoValue>;
  case ValueClass::name:
    return make<VCardNValue>;
  case ValueClass::organisation:
    return make<VCardOrgValue>;
  case ValueClass::text:
    return make<VCardTextValue>;
  case ValueClass::uri:
    return make<VCardURIValue>;
  case ValueClass::utcOffset:
    return make<VCardUTCOffsetValue>;
  case ValueClass::extension:
    break;
  }
  return nullptr;
}

} // namespace

ValueMaker valueMakerFor(TextView type) {
  return makerOf(valueClassFor(type));
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
