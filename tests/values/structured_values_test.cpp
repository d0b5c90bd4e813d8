#include "cardwright/vcard_address_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_org_value.h"
#include "support/text_printer.h"
#include "support/value_texts.h"

#include <gtest/gtest.h>

#include <vector>

namespace cardwright {
namespace {

using Slot = std::optional<TextList>;
using Slots = std::vector<Slot>;

Slots slotsOf(const VCardNValue& name) {
  return {name.last(), name.first(), name.middle(), name.prefix(), name.suffix()};
}

Slots slotsOf(const VCardAddressValue& address) {
  return {address.poBox(),  address.extended(),   address.street(), address.locality(),
          address.region(), address.postalCode(), address.country()};
}

/// So many slots, the first of which are given.
Slots padded(Slots slots, std::size_t count) {
  slots.resize(count);
  return slots;
}

struct Row {
  TextView text;
  Slots slots;
};

const Slot kAbsent;

/// Rows that fit into five slots.
const Row kRows[] = {
    {u"", {}},
    {u"Doe;John;;;", {{{u"Doe"}}, {{u"John"}}}},
    {u"Doe", {{{u"Doe"}}}},
    {u";;;;x", {kAbsent, kAbsent, kAbsent, kAbsent, {{u"x"}}}},
    {u"a;b;c;d;e", {{{u"a"}}, {{u"b"}}, {{u"c"}}, {{u"d"}}, {{u"e"}}}},
    {u"a,b;c", {{{u"a", u"b"}}, {{u"c"}}}},
    {u"Doe\\, Jr.;x", {{{u"Doe, Jr."}}, {{u"x"}}}},
    {u"a\\;b;c", {{{u"a;b"}}, {{u"c"}}}},
    {u"a\\\\;b", {{{u"a\\"}}, {{u"b"}}}},
    {u"a\\\\\\;b", {{{u"a\\;b"}}}},
    {u"a\\", {{{u"a"}}}},
    {u"\\", {{{u""}}}},
    {u"a;\\", {{{u"a"}}, {{u""}}}},
    {u"\\;", {{{u";"}}}},
    {u",;,", {{{u"", u""}}, {{u"", u""}}}},
    {u"a,;b", {{{u"a", u""}}, {{u"b"}}}},
    {u" a , b ;\tc", {{{u"a", u"b"}}, {{u"c"}}}},
    {u" ;x", {{{u" "}}, {{u"x"}}}},
    {u"a, ,b", {{{u"a", u" ", u"b"}}}},
    {u"a\\nb;c\\Nd", {{{u"a\nb"}}, {{u"c\nd"}}}},
    {u"\u00E9\\;\u4E2D;\U0001F600", {{{u"\u00E9;\u4E2D"}}, {{u"\U0001F600"}}}},
    {u"\\\u00E9;x", {{{u"\u00E9"}}, {{u"x"}}}},
    {u"\\\U0001F600;x", {{{u"\U0001F600"}}, {{u"x"}}}},
    {u":=;\"x;y\"", {{{u":="}}, {{u"\"x"}}, {{u"y\""}}}},
};

TEST(SlottedValues, readComponentsIntoTheirSlots) {
  for (const Row& row : kRows) {
    for (const VersionCode version : kVersionCodes) {
      EXPECT_EQ(slotsOf(*parsed<VCardNValue>(row.text, version)), padded(row.slots, 5))
          << testing::PrintToString(row.text);
      EXPECT_EQ(slotsOf(*parsed<VCardAddressValue>(row.text, version)), padded(row.slots, 7))
          << testing::PrintToString(row.text);
    }
  }
}

TEST(SlottedValues, ignoreWhatIsBehindTheirLastSlot) {
  EXPECT_EQ(slotsOf(*parsed<VCardNValue>(u"a;b;c;d;e;f;g")),
            slotsOf(*parsed<VCardNValue>(u"a;b;c;d;e")));
  EXPECT_EQ(slotsOf(*parsed<VCardNValue>(u";;;;;f")), Slots(5));
  EXPECT_EQ(slotsOf(*parsed<VCardAddressValue>(u"1;2;3;4;5;6;7;8")),
            (Slots{{{u"1"}}, {{u"2"}}, {{u"3"}}, {{u"4"}}, {{u"5"}}, {{u"6"}}, {{u"7"}}}));
  EXPECT_EQ(slotsOf(*parsed<VCardAddressValue>(u";;;;;;;8")), Slots(7));
}

TEST(SlottedValues, keepSlotsForWhichNothingComes) {
  const auto name = parsed<VCardNValue>(u"a;b;c;d;e");
  EXPECT_TRUE(name->parse(u"x;;y", 4, nullptr));
  EXPECT_EQ(slotsOf(*name), (Slots{{{u"x"}}, {{u"b"}}, {{u"y"}}, {{u"d"}}, {{u"e"}}}));
}

TEST(SlottedValues, decodeEachComponentByItself) {
  EXPECT_EQ(slotsOf(*parsedAs<VCardNValue>(true, u"utf-8", u"M=C3=BCller=3Bx;=41,=42")),
            padded({{{u"M\u00FCller;x"}}, {{u"A", u"B"}}}, 5));
  EXPECT_EQ(slotsOf(*parsedAs<VCardAddressValue>(true, std::nullopt, u";;a=0D=0Ab")),
            padded({kAbsent, kAbsent, {{u"a\r\nb"}}}, 7));
  EXPECT_EQ(slotsOf(*parsedAs<VCardNValue>(false, u"hz-gb-2312", u"~{VPND~};x")),
            padded({{{u"\u4E2D\u6587"}}, {{u"x"}}}, 5));
}

TEST(SlottedValues, keepLoneSurrogates) {
  const Text text = {char16_t{0xD800}, u';', u'\\', char16_t{0xDC00}, u';', u'x'};
  EXPECT_EQ(slotsOf(*parsed<VCardNValue>(text)),
            padded({{{Text(1, char16_t{0xD800})}}, {{Text(1, char16_t{0xDC00})}}, {{u"x"}}}, 5));
}

TEST(SlottedValues, needNoFormatter) {
  VCardAddressValue address;
  EXPECT_TRUE(address.parse(u";;street", 4, nullptr));
  Text output = u"before:";
  address.generate(output, 4, nullptr);
  EXPECT_EQ(output, u"before:;;street;;;;");
}

TEST(SlottedValues, writeAllTheirSlots) {
  for (const VersionCode version : kVersionCodes) {
    EXPECT_EQ(written(VCardNValue(), version), u";;;;");
    EXPECT_EQ(written(VCardAddressValue(), version), u";;;;;;");
    EXPECT_EQ(written(*parsed<VCardNValue>(u"Doe;John"), version), u"Doe;John;;;");
    EXPECT_EQ(written(*parsed<VCardNValue>(u"a\\;b,c\\,d;e\\\\f\\ng"), version),
              u"a\\;b,c\\,d;e\\\\f\\ng;;;")
        << "semicolons are escaped for every version";
    EXPECT_EQ(written(*parsed<VCardAddressValue>(u"1;2;3,3b;4;5;6;7;8"), version),
              u"1;2;3,3b;4;5;6;7");
  }
}

TEST(SlottedValues, joinEqualTextsLikeAnyOthers) {
  VCardNValue name;
  name.setLast(TextList{u"a", u"a", u"b", u"a"});
  name.setFirst(TextList{u"", u""});
  EXPECT_EQ(written(name), u"a,a,b,a;,;;;");
}

TEST(VCardNValue, hasFiveSlots) {
  VCardNValue name;
  EXPECT_EQ(slotsOf(name), Slots(5)) << "unset slots are absent, not empty";
  name.setLast(TextList{u"1"});
  name.setFirst(TextList{u"2"});
  name.setMiddle(TextList{u"3", u"3b"});
  name.setPrefix(TextList{u"4"});
  name.setSuffix(TextList{u"5"});
  EXPECT_EQ(slotsOf(name), (Slots{{{u"1"}}, {{u"2"}}, {{u"3", u"3b"}}, {{u"4"}}, {{u"5"}}}));
  EXPECT_EQ(written(name), u"1;2;3,3b;4;5");
  name.setMiddle(std::nullopt);
  EXPECT_FALSE(name.middle());
  EXPECT_EQ(name.type(), TextView(u"N"));
}

TEST(VCardNValue, isEmptyWithoutAnyText) {
  VCardNValue name;
  EXPECT_TRUE(name.isEmpty());
  name.setPrefix(TextList());
  EXPECT_TRUE(name.isEmpty()) << "an empty list holds nothing";
  name.setSuffix(TextList{u""});
  EXPECT_FALSE(name.isEmpty()) << "an empty text is a text";
  EXPECT_TRUE(parsed<VCardNValue>(u";;;;")->isEmpty());
  EXPECT_TRUE(parsed<VCardNValue>(u";;;;;x")->isEmpty());
  EXPECT_FALSE(parsed<VCardNValue>(u";;,;;")->isEmpty());
  EXPECT_FALSE(parsed<VCardNValue>(u";;;;x")->isEmpty());
  for (void (VCardNValue::*set)(Slot) :
       {&VCardNValue::setLast, &VCardNValue::setFirst, &VCardNValue::setMiddle,
        &VCardNValue::setPrefix, &VCardNValue::setSuffix}) {
    VCardNValue one;
    (one.*set)(TextList{u"x"});
    EXPECT_FALSE(one.isEmpty());
  }
}

TEST(VCardAddressValue, hasSevenSlots) {
  VCardAddressValue address;
  EXPECT_EQ(slotsOf(address), Slots(7));
  address.setPoBox(TextList{u"1"});
  address.setExtended(TextList{u"2"});
  address.setStreet(TextList{u"3"});
  address.setLocality(TextList{u"4"});
  address.setRegion(TextList{u"5"});
  address.setPostalCode(TextList{u"6"});
  address.setCountry(TextList{u"7"});
  EXPECT_EQ(written(address), u"1;2;3;4;5;6;7");
  EXPECT_EQ(slotsOf(address), slotsOf(*parsed<VCardAddressValue>(u"1;2;3;4;5;6;7")));
  address.setStreet(std::nullopt);
  EXPECT_FALSE(address.street());
  EXPECT_EQ(address.type(), TextView(u"Address"));
}

TEST(VCardOrgValue, readsOnePartForEachComponent) {
  struct Parts {
    TextView text;
    TextList parts;
    TextView written;
  };
  const Parts kOrganisations[] = {
      {u"", {u""}, u""},
      {u"A", {u"A"}, u"A"},
      {u"A\\;B;C", {u"A;B", u"C"}, u"A\\;B;C"},
      {u"A;;B", {u"A", u"", u"B"}, u"A;;B"},
      {u"A;", {u"A", u""}, u"A;"},
      {u";", {u"", u""}, u";"},
      {u";;;", {u"", u"", u"", u""}, u";;;"},
      {u"a,b;c", {u"a,b", u"c"}, u"a\\,b;c"},
      {u"a\\,b", {u"a,b"}, u"a\\,b"},
      {u" a ; b ", {u" a ", u" b "}, u" a ; b "},
      {u"a\\\\;b\\\\\\;c", {u"a\\", u"b\\;c"}, u"a\\\\;b\\\\\\;c"},
      {u"a\\", {u"a"}, u"a"},
      {u"a\\;", {u"a;"}, u"a\\;"},
      {u"1;2;3;4;5;6;7;8;9",
       {u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9"},
       u"1;2;3;4;5;6;7;8;9"},
      {u"a\\nb;\\N", {u"a\nb", u"\n"}, u"a\\nb;\\n"},
      {u"x;x;x", {u"x", u"x", u"x"}, u"x;x;x"},
  };
  for (const Parts& row : kOrganisations) {
    for (const VersionCode version : kVersionCodes) {
      const auto organisation = parsed<VCardOrgValue>(row.text, version);
      EXPECT_EQ(organisation->parts(), row.parts) << testing::PrintToString(row.text);
      EXPECT_EQ(written(*organisation, version), row.written) << testing::PrintToString(row.text);
    }
  }
}

TEST(VCardOrgValue, appendsToItsParts) {
  const auto organisation = parsed<VCardOrgValue>(u"a;b");
  EXPECT_TRUE(organisation->parse(u"c", 4, nullptr));
  EXPECT_EQ(organisation->parts(), (TextList{u"a", u"b", u"c"}));
  organisation->setParts({});
  EXPECT_EQ(written(*organisation), u"");
  organisation->setParts({u"x;y"});
  EXPECT_EQ(written(*organisation), u"x\\;y");
  EXPECT_EQ(organisation->type(), TextView(u"Org"));
  EXPECT_TRUE(VCardOrgValue().parts().empty());
}

TEST(VCardOrgValue, decodesEachPartByItself) {
  EXPECT_EQ(parsedAs<VCardOrgValue>(true, u"utf-8", u"=C3=A9;=3B;=")->parts(),
            (TextList{u"\u00E9", u";", u""}));
  EXPECT_EQ(parsedAs<VCardOrgValue>(true, u"utf-8", u"=00x;y")->parts(), (TextList{u"", u"y"}));
}

} // namespace
} // namespace cardwright
