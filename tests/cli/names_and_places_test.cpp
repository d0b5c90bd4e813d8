#include "support/text_printer.h"
#include "view/addresses.h"
#include "view/person_names.h"
#include "view/positions.h"

#include <gtest/gtest.h>

#include <limits>

namespace cardwright::tool {
namespace {

using Slot = std::optional<TextList>;

Text nameText(const Slot& last, const Slot& first, const Slot& middle = {}, const Slot& prefix = {},
              const Slot& suffix = {}) {
  VCardNValue name;
  name.setLast(last);
  name.setFirst(first);
  name.setMiddle(middle);
  name.setPrefix(prefix);
  name.setSuffix(suffix);
  return personName(name);
}

TEST(PersonName, putsPartsInSpokenOrder) {
  EXPECT_EQ(nameText(TextList{u"Lovelace"}, TextList{u"Ada"}, TextList{u"King", u"Noel"},
                     TextList{u"Dr."}, TextList{u"Countess", u"FRS"}),
            u"Dr. Ada King Noel Lovelace, Countess, FRS");
  EXPECT_EQ(nameText(TextList{u"Lovelace"}, {}), u"Lovelace");
  EXPECT_EQ(nameText(TextList{u""}, TextList{u""}), u"");
  EXPECT_EQ(nameText({}, {}), u"");
}

TEST(PersonName, putsTheFamilyFirstInEastAsianScript) {
  EXPECT_EQ(nameText(TextList{u"高瀬"}, TextList{u"結衣"}), u"高瀬結衣");
  EXPECT_EQ(nameText(TextList{u"김"}, TextList{u"하늘"}), u"김하늘");
  EXPECT_EQ(nameText(TextList{u"高瀬"}, TextList{u"Yui"}), u"Yui 高瀬");
}

TEST(IsSaidBy, findsEveryWordInAnyOrder) {
  VCardNValue name;
  EXPECT_TRUE(isSaidBy(name, u""));
  name.setLast(TextList{u"Nguyễn"});
  name.setFirst(TextList{u"Hồng Vân"});
  name.setMiddle(TextList{u"Thị"});
  EXPECT_TRUE(isSaidBy(name, u"Nguyễn Thị Hồng Vân"));
  EXPECT_FALSE(isSaidBy(name, u"Nguyễn Hồng Vân"));
}

struct Address {
  TextView poBox, extended, street, locality, region, postalCode, country;
};

Text addressOf(const Address& parts) {
  const auto slot = [](TextView text) {
    return text.empty() ? Slot() : Slot(TextList{Text(text)});
  };
  VCardAddressValue address;
  address.setPoBox(slot(parts.poBox));
  address.setExtended(slot(parts.extended));
  address.setStreet(slot(parts.street));
  address.setLocality(slot(parts.locality));
  address.setRegion(slot(parts.region));
  address.setPostalCode(slot(parts.postalCode));
  address.setCountry(slot(parts.country));
  return addressText(address);
}

TEST(AddressText, isWrittenAsOnALetter) {
  EXPECT_EQ(addressOf({u"PO Box 1", u"Unit 4", u"48 Linden Street", u"Springfield", u"IL", u"62701",
                       u"United States"}),
            u"PO Box 1\nUnit 4\n48 Linden Street\nSpringfield, IL 62701\nUnited States");
  EXPECT_EQ(addressOf({u"", u"", u"Strandvägen 12", u"Gävle", u"", u"803 20", u"Sverige"}),
            u"Strandvägen 12\n803 20 Gävle\nSverige");
  EXPECT_EQ(addressOf({u"", u"", u"21 Wharf Road", u"London", u"", u"E2 7XX", u""}),
            u"21 Wharf Road\nLondon E2 7XX");
  EXPECT_EQ(addressOf({}), u"");
}

TEST(AddressText, goesFromLargeToSmallInEastAsianScript) {
  EXPECT_EQ(addressOf({u"", u"", u"見本町1-2-3", u"千代田区", u"東京都", u"〒100-0001", u"日本"}),
            u"日本\n〒100-0001\n東京都 千代田区 見本町1-2-3");
}

TEST(PositionText, saysDegreesAndDirections) {
  EXPECT_EQ(positionText(48.2082, 16.3738), u"48.2082° N, 16.3738° E");
  EXPECT_EQ(positionText(-33.5, -70), u"33.5° S, 70° W");
  EXPECT_EQ(positionText(0, -0.0), u"0° N, 0° E");
  EXPECT_EQ(positionText(100, 1e300), u"100° N, 1e+300° E");
  EXPECT_EQ(positionText(std::numeric_limits<double>::infinity(), 0), u"inf° N, 0° E");
}

TEST(PositionText, readsGeoUris) {
  EXPECT_EQ(positionText(u"geo:48.2082,16.3738,183;u=10"), u"48.2082° N, 16.3738° E");
  EXPECT_EQ(positionText(u"GEO:-33.5, +151"), u"33.5° S, 151° E");
  EXPECT_EQ(positionText(u"geo:here"), u"geo:here");
  EXPECT_EQ(positionText(u"geo:here,there"), u"geo:here,there");
}

} // namespace
} // namespace cardwright::tool
