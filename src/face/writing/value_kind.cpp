#include "face/writing/value_kind.h"

#include "base/case.h"
#include "cardwright/vcard_address_value.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_org_value.h"
#include "cardwright/vcard_property.h"
#include "cardwright/vcard_x_value.h"
#include "model/value_types.h"

#include <typeinfo>

namespace cardwright {

namespace {

/// The type that a reader chooses for a property.
Text typeRead(TextView propertyKey, VersionCode version, std::optional<TextView> stated) {
  VCardProperty property;
  property.setName(propertyKey);
  const TextView byDefault = property.defaultTypeForVersion(version);
  const std::optional<TextView> implied = equivalentType(byDefault);
  const bool isImplied = stated && implied && equalIgnoringCase(*implied, *stated);
  return Text(stated && !isImplied ? *stated : byDefault);
}

bool isSameKind(const VCardValue& a, const VCardValue& b) {
  if (typeid(a) != typeid(b)) {
    return false;
  }
  const bool goesByType = dynamic_cast<const VCardDateTimeValue*>(&a) != nullptr ||
                          dynamic_cast<const VCardXValue*>(&a) != nullptr;
  return !goesByType || (a.type() && b.type() && equalIgnoringCase(*a.type(), *b.type()));
}

} // namespace

Parting partingOf(TextView propertyKey, VersionCode version, std::optional<TextView> stated) {
  VCardProperty property;
  property.setName(propertyKey);
  const auto read = VCardValue::valueWithType(typeRead(propertyKey, version, stated));
  const bool hasSlots = dynamic_cast<const VCardNValue*>(read.get()) != nullptr ||
                        dynamic_cast<const VCardAddressValue*>(read.get()) != nullptr;
  // An escaped semicolon parts a gender too.
  const bool hasParts = hasSlots || dynamic_cast<const VCardOrgValue*>(read.get()) != nullptr;
  return {hasParts, hasSlots || property.isMultiValueProperty()};
}

std::optional<TextView> typeToState(const VCardValue& value, TextView propertyKey,
                                    VersionCode version, std::optional<TextView> stated) {
  const std::optional<TextView> type = value.type();
  if (!type) {
    return std::nullopt;
  }
  const auto read = VCardValue::valueWithType(typeRead(propertyKey, version, stated));
  const auto own = VCardValue::valueWithType(*type);
  const bool isList = dynamic_cast<const VCardMultiValue*>(&value) != nullptr;
  const VCardValue& wanted = isList ? *own : value;
  if (isSameKind(*read, wanted)) {
    return std::nullopt;
  }
  const auto next = VCardValue::valueWithType(typeRead(propertyKey, version, type));
  return isSameKind(*next, wanted) ? type : std::nullopt;
}

} // namespace cardwright
