#include "support/built_card.h"

#include "base/whitespace.h"
#include "cardwright/date_formatter.h"
#include "cardwright/vcard_address_value.h"
#include "cardwright/vcard_custom_value.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_gender_value.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_org_value.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "cardwright/vcard_x_value.h"
#include "cardwright/vocabulary.h"

namespace cardwright {

namespace {

TextList separated(TextView text) {
  TextList parts;
  for (std::size_t at = 0; at != TextView::npos;) {
    const std::size_t end = text.find(u'|', at);
    parts.emplace_back(text.substr(at, end - at));
    at = end == TextView::npos ? end : end + 1;
  }
  return parts;
}

/// @param text only that is kept of it which a line can hold
template <typename Value>
std::shared_ptr<VCardValue> parsed(std::shared_ptr<Value> value, TextView text) {
  Text line(text);
  std::erase_if(line, [](char16_t unit) { return unit < 0x20 || (unit & 0xF800U) == 0xD800; });
  DateFormatter formatter("en_US_POSIX");
  value->parse(trimWhitespaceAndNewlines(line), 3,
               &formatter); // As it is read where no version is stated.
  return value;
}

std::shared_ptr<VCardValue> listOf(const TextList& parts) {
  VCardValueList elements;
  for (const Text& part : parts) {
    elements.push_back(VCardTextValue::valueWithText(part));
  }
  auto list = VCardMultiValue::valueWithType(cVCardValue_TEXT);
  list->setValues(elements);
  return list;
}

std::shared_ptr<VCardValue> valueOf(char16_t kind, TextView text) {
  const TextList parts = separated(text);
  switch (kind) {
  case u'u':
    return VCardURIValue::valueWithText(text);
  case u'x': {
    auto value = VCardXValue::valueWithType(u"x-kind");
    value->setText(text);
    return value;
  }
  case u'n': {
    auto name = std::make_shared<VCardNValue>();
    name->setLast(parts);
    name->setSuffix(TextList{parts.front()});
    return name;
  }
  case u'a': {
    auto address = std::make_shared<VCardAddressValue>();
    address->setStreet(parts);
    address->setCountry(TextList{parts.back()});
    return address;
  }
  case u'o': {
    auto organisation = std::make_shared<VCardOrgValue>();
    organisation->setParts(parts);
    return organisation;
  }
  case u'g': {
    auto gender = std::make_shared<VCardGenderValue>();
    gender->setSex(parts.front());
    gender->setIdentity(parts.back());
    return gender;
  }
  case u'c': {
    auto labelled = std::make_shared<VCardCustomValue>();
    labelled->setLabel(parts.front());
    labelled->setValue(parts.back());
    return labelled;
  }
  case u'w':
    return parsed(VCardDateTimeValue::valueWithType(cVCardValue_DATE_AND_OR_TIME), text);
  case u'z':
    return parsed(std::make_shared<VCardUTCOffsetValue>(), text);
  case u'p':
    return parsed(std::make_shared<VCardGeoValue>(), text);
  default:
    return VCardTextValue::valueWithText(text);
  }
}

constexpr TextView kKinds = u"uxnaogcwzp";

/// No VALUE makes some properties read a plain text, which is what any other sign asks for.
char16_t kindFor(const VCardProperty& property, char16_t wanted) {
  constexpr std::pair<TextView, char16_t> kOwn[] = {
      {cVCardValue_N, u'n'},      {cVCardValue_Address, u'a'}, {cVCardValue_Org, u'o'},
      {cVCardValue_Gender, u'g'}, {cVCardValue_Custom, u'c'},  {cVCardValue_Geo3_0, u'p'}};
  const bool isPlain = kKinds.find(wanted) == TextView::npos;
  for (const auto& [type, kind] : kOwn) {
    if (isPlain && property.defaultTypeForVersion(3) == type) {
      return kind;
    }
  }
  return wanted;
}

class Pieces {
 public:
  explicit Pieces(TextView text) noexcept : m_rest(text) {}

  [[nodiscard]] bool atEnd() const noexcept { return m_rest.empty(); }
  TextView next() noexcept {
    const std::size_t end = std::min(m_rest.find(u'\0'), m_rest.size());
    const TextView piece = m_rest.substr(0, end);
    m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
    return piece;
  }

 private:
  TextView m_rest;
};

} // namespace

std::shared_ptr<VCard> builtCard(TextView allPieces) {
  auto card = std::make_shared<VCard>();
  for (Pieces pieces(allPieces); !pieces.atEnd();) {
    const TextView group = pieces.next();
    const TextView name = pieces.next();
    const TextView parameterName = pieces.next();
    const TextView parameterValues = pieces.next();
    const TextView value = pieces.next();
    const TextView text = value.substr(value.empty() ? 0 : 1);
    auto property = VCardProperty::propertyWithName(name, std::shared_ptr<VCardValue>());
    const char16_t kind = kindFor(*property, value.empty() ? u't' : value.front());
    property->setValue(property->isMultiValueProperty() ? listOf(separated(text))
                                                        : valueOf(kind, text));
    if (!group.empty()) {
      property->setGroup(group);
    }
    auto parameter = std::make_shared<VCardParameter>();
    parameter->setName(parameterName);
    parameter->addValues(separated(parameterValues));
    property->addParameter(parameter);
    card->addProperty(std::move(property));
  }
  return card;
}

} // namespace cardwright
