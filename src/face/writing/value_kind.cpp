#include "face/writing/value_kind.h"

#include "base/case.h"
#include "cardwright/vcard_address_value.h"
#include "cardwright/vcard_custom_value.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_gender_value.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_org_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "cardwright/vcard_x_value.h"
#include "cardwright/vocabulary.h"
#include "model/value_types.h"
#include "values/value_classes.h"

#include <algorithm>
#include <iterator>
#include <typeinfo>

namespace cardwright {

namespace {

/// The type that a reader chooses for a property.
TextView typeRead(TextView propertyKey, VersionCode version, std::optional<TextView> stated) {
  const TextView byDefault = defaultTypeOf(propertyKey, version);
  const std::optional<TextView> implied = equivalentType(byDefault);
  const bool isImplied = stated && implied && equalIgnoringCase(*implied, *stated);
  return stated && !isImplied ? *stated : byDefault;
}

/// The class of a value; absent for one that is not ours.
std::optional<ValueClass> classOf(const VCardValue& value) {
  struct Row {
    const std::type_info& type;
    ValueClass valueClass;
  };
  static const Row rows[] = {
      {typeid(VCardTextValue), ValueClass::text},
      {typeid(VCardURIValue), ValueClass::uri},
      {typeid(VCardXValue), ValueClass::extension},
      {typeid(VCardNValue), ValueClass::name},
      {typeid(VCardAddressValue), ValueClass::address},
      {typeid(VCardOrgValue), ValueClass::organisation},
      {typeid(VCardDateTimeValue), ValueClass::dateTime},
      {typeid(VCardUTCOffsetValue), ValueClass::utcOffset},
      {typeid(VCardGeoValue), ValueClass::geo},
      {typeid(VCardGenderValue), ValueClass::gender},
      {typeid(VCardCustomValue), ValueClass::custom},
  };
  const auto* const found = std::find_if(std::begin(rows), std::end(rows),
                                         [&](const Row& row) { return row.type == typeid(value); });
  return found != std::end(rows) ? std::optional(found->valueClass) : std::nullopt;
}

/// Whether what a reader makes of a type is a value of this class and, where the class does not say
/// all, of this type.
bool isReadAs(TextView read, std::optional<ValueClass> wanted, TextView wantedType) {
  if (valueClassFor(read) != wanted) {
    return false;
  }
  const bool goesByType = wanted == ValueClass::dateTime || wanted == ValueClass::extension;
  return !goesByType || equalIgnoringCase(read, wantedType);
}

/// Values with a label do not tell their type themselves.
std::optional<TextView> typeOf(const VCardValue& value) {
  const bool isLabelled = dynamic_cast<const VCardCustomValue*>(&value) != nullptr;
  return isLabelled ? std::optional(cVCardValue_Custom) : value.type();
}

} // namespace

Parting partingOf(TextView propertyKey, VersionCode version, std::optional<TextView> stated) {
  const ValueClass read = valueClassFor(typeRead(propertyKey, version, stated));
  const bool hasSlots = read == ValueClass::name || read == ValueClass::address;
  // An escaped semicolon parts a gender too.
  return {hasSlots || read == ValueClass::organisation, hasSlots || isMultiValueName(propertyKey)};
}

std::optional<TextView> typeToState(const VCardValue& value, TextView propertyKey,
                                    VersionCode version, std::optional<TextView> stated) {
  const std::optional<TextView> type = typeOf(value);
  if (!type) {
    return std::nullopt;
  }
  const bool isList = typeid(value) == typeid(VCardMultiValue);
  const auto wanted = isList ? std::optional(valueClassFor(*type)) : classOf(value);
  if (isReadAs(typeRead(propertyKey, version, stated), wanted, *type)) {
    return std::nullopt;
  }
  return isReadAs(typeRead(propertyKey, version, type), wanted, *type) ? type : std::nullopt;
}

} // namespace cardwright
