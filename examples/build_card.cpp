// Builds a card and writes it in versions 2.1, 3.0 and 4.0.

#include <cardwright/cardwright.h>

#include <iostream>
#include <memory>

using namespace cardwright;

namespace {

/// A telephone number with a type.
std::shared_ptr<VCardProperty> telephone(TextView number, TextView type) {
  auto property = VCardProperty::propertyWithName(u"TEL", number);
  property->addParameter(VCardParameter::parameterWithName(u"TYPE", type));
  return property;
}

std::shared_ptr<VCard> makeCard() {
  const auto name = std::make_shared<VCardNValue>();
  name->setLast(TextList{u"Brandström"});
  name->setFirst(TextList{u"Zoë"});

  const auto address = std::make_shared<VCardAddressValue>();
  address->setStreet(TextList{u"Skeppsgatan 9"});
  address->setLocality(TextList{u"Göteborg"});
  address->setCountry(TextList{u"Sweden"});

  const auto birthday = VCardDateTimeValue::valueWithType(u"date-and-or-time");
  birthday->setComps({.year = 1985, .month = 4, .day = 12});

  const auto circles = VCardMultiValue::valueWithType(u"text");
  circles->addTextValues({u"friends", u"sailing, mostly"});

  auto card = std::make_shared<VCard>();
  card->addProperty(VCardProperty::propertyForVersion(4));
  card->addProperty(VCardProperty::propertyWithName(u"FN", u"Zoë Brandström"));
  card->addProperty(VCardProperty::propertyWithName(u"N", name));
  card->addProperty(telephone(u"+46 70 174 06 05", u"cell"));
  card->addProperty(VCardProperty::propertyWithName(u"ADR", address));
  card->addProperty(VCardProperty::propertyWithName(u"BDAY", birthday));
  card->addProperty(VCardProperty::propertyWithName(u"CATEGORIES", circles));
  card->addProperty(VCardProperty::propertyWithName(u"NOTE", u"Knots; splices\nand sails"));
  return card;
}

} // namespace

int main() {
  const VCardList cards{makeCard()};
  for (const VersionCode version : {2, 3, 4}) {
    std::cout << writeCards(convertCards(cards, version)) << '\n';
  }
}
