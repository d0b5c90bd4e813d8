#include "model/value_types.h"

#include "cardwright/vcard_property.h"
#include "model/default_types.h"

namespace cardwright {

namespace {

constexpr NameTable kEquivalentTypes({
    NameRow<TextView>{cVCardValue_Address, cVCardValue_TEXT},
    {cVCardValue_N, cVCardValue_TEXT},
    {cVCardValue_Gender, cVCardValue_TEXT},
    {cVCardValue_Org, cVCardValue_TEXT},
    {cVCardValue_Geo3_0, cVCardValue_TEXT},
    {cVCardValue_Custom, cVCardValue_TEXT},
});

} // namespace

std::optional<TextView> equivalentType(TextView defaultType) {
  const NameRow<TextView>* row = kEquivalentTypes.find(defaultType);
  return row != nullptr ? std::optional<TextView>(row->value) : std::nullopt;
}

void VCardProperty::initialize() {}

TextView defaultTypeOf(TextView name, VersionCode version) noexcept {
  if (version < 4) {
    if (const NameRow<TextView>* row = kDefaultTypesBelow4.findIgnoringCase(name)) {
      return row->value;
    }
  }
  const NameRow<TextView>* row = kDefaultTypes.findIgnoringCase(name);
  return row != nullptr ? row->value : cVCardValue_TEXT;
}

TextView VCardProperty::defaultTypeForVersion(VersionCode version) const noexcept {
  return defaultTypeOf(name(), version);
}

bool VCardProperty::isMultiValueProperty() const noexcept {
  return isMultiValueName(name());
}

} // namespace cardwright
