#include "view/values.h"

#include "text/words.h"
#include "view/addresses.h"
#include "view/dates.h"
#include "view/media.h"
#include "view/person_names.h"
#include "view/positions.h"

#include <cardwright/vcard_custom_value.h>
#include <cardwright/vcard_date_time_value.h>
#include <cardwright/vcard_gender_value.h>
#include <cardwright/vcard_geo_value.h>
#include <cardwright/vcard_multi_value.h>
#include <cardwright/vcard_org_value.h>
#include <cardwright/vcard_text_value.h>
#include <cardwright/vcard_utc_offset_value.h>
#include <cardwright/vocabulary.h>

#include <array>

namespace cardwright::tool {

namespace {

Text genderText(const VCardGenderValue& gender) {
  struct Sex {
    TextView code;
    TextView word;
  };
  constexpr std::array kSexes{
      Sex{cVCardValue_GENDER_MALE, u"male"},         Sex{cVCardValue_GENDER_FEMALE, u"female"},
      Sex{cVCardValue_GENDER_OTHER, u"other"},       Sex{cVCardValue_GENDER_NONE, u"none"},
      Sex{cVCardValue_GENDER_UNKNOWN, u"not known"},
  };
  Text text(gender.sex().value_or(TextView()));
  for (const Sex& sex : kSexes) {
    if (equalsIgnoringCase(text, sex.code)) {
      text = sex.word;
      break;
    }
  }
  appendJoined(text, u", ", gender.identity().value_or(TextView()));
  return text;
}

/// Programs that must store a year for a birthday without one say which year means none.
DateComponents shownComponents(const VCardProperty& property, const VCardDateTimeValue& date) {
  DateComponents components = date.comps();
  const auto omitted = property.valueOfParameterWithName(cVCardParameter_DATE_OMIT_YEAR);
  if (omitted && components.year && numberText(*components.year) == trimmed(*omitted)) {
    components.year.reset();
  }
  return components;
}

bool pointsToCard(TextView name) {
  return name == cVCardProperty_MEMBER || name == cVCardProperty_X_ADDRESSBOOKSERVER_MEMBER ||
         name == cVCardProperty_RELATED || name == cVCardProperty_AGENT;
}

/// A URI without the scheme that its property implies.
TextView withoutScheme(TextView name, TextView uri) {
  struct Implied {
    TextView name;
    TextView scheme;
  };
  constexpr std::array kImplied{
      Implied{cVCardProperty_TEL, u"tel:"},
      Implied{cVCardProperty_EMAIL, u"mailto:"},
  };
  for (const Implied& implied : kImplied) {
    if (name == implied.name && startsWithIgnoringCase(uri, implied.scheme)) {
      return uri.substr(implied.scheme.size());
    }
  }
  return uri;
}

ValueText textualValue(const VCardProperty& property, TextView text, CardNames& names) {
  if (auto data = inlineDataText(property, text)) {
    return {std::move(*data), false};
  }
  if (startsWithIgnoringCase(text, u"geo:")) {
    return {positionText(text), false};
  }
  if (pointsToCard(property.name())) {
    if (auto name = names.nameOf(text)) {
      return {std::move(*name), false};
    }
  }
  const TextView bare = withoutScheme(property.name(), text);
  return {Text(bare), true};
}

/// What values of every class but the multi-value look like; absent for the others.
std::optional<ValueText> singleValue(const VCardProperty& property, const VCardValue& value,
                                     CardNames& names) {
  if (const auto* const text = dynamic_cast<const VCardTextValue*>(&value)) {
    return textualValue(property, text->text().value_or(TextView()), names);
  }
  if (const auto* const name = dynamic_cast<const VCardNValue*>(&value)) {
    return ValueText{personName(*name), true};
  }
  if (const auto* const address = dynamic_cast<const VCardAddressValue*>(&value)) {
    return ValueText{addressText(*address), true};
  }
  if (const auto* const organisation = dynamic_cast<const VCardOrgValue*>(&value)) {
    return ValueText{joined(organisation->parts(), u", "), true};
  }
  if (const auto* const date = dynamic_cast<const VCardDateTimeValue*>(&value)) {
    Text text = dateText(shownComponents(property, *date));
    return ValueText{text.empty() ? Text(u"(no date)") : std::move(text), false};
  }
  if (const auto* const gender = dynamic_cast<const VCardGenderValue*>(&value)) {
    return ValueText{genderText(*gender), true};
  }
  if (const auto* const position = dynamic_cast<const VCardGeoValue*>(&value)) {
    return ValueText{positionText(position->latitude(), position->longitude()), false};
  }
  if (const auto* const offset = dynamic_cast<const VCardUTCOffsetValue*>(&value)) {
    return ValueText{offsetText(offset->offset()), false};
  }
  if (const auto* const custom = dynamic_cast<const VCardCustomValue*>(&value)) {
    return ValueText{Text(custom->value().value_or(TextView())), true};
  }
  return std::nullopt;
}

Text listText(const VCardProperty& property, const VCardMultiValue& list, CardNames& names) {
  Text text;
  for (const auto& element : list.values().value_or(VCardValueList())) {
    if (element == nullptr) {
      continue;
    }
    if (const auto single = singleValue(property, *element, names)) {
      appendJoined(text, u", ", single->text);
    }
  }
  return text;
}

} // namespace

ValueText valueText(const VCardProperty& property, CardNames& names) {
  const auto value = property.value();
  ValueText result;
  if (const auto* const list = dynamic_cast<const VCardMultiValue*>(value.get())) {
    result = {listText(property, *list, names), true};
  } else if (value != nullptr) {
    result = singleValue(property, *value, names).value_or(ValueText());
  }
  if (trimmed(result.text).empty()) {
    result = {u"(empty)", false};
  }
  return result;
}

} // namespace cardwright::tool
