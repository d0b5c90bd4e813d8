#include "cardwright/vcard.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_text_value.h"
#include "support/text_printer.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright {
namespace {

std::shared_ptr<VCardProperty> propertyWithText(TextView name, TextView text) {
  return VCardProperty::propertyWithName(name, std::optional<TextView>(text));
}

std::shared_ptr<VCardProperty> inGroup(TextView group, TextView name) {
  auto property = propertyWithText(name, u"1");
  property->setGroup(group);
  return property;
}

/// A card with text properties.
class CardOf {
 public:
  struct Line {
    TextView name;
    TextView text;
  };
  CardOf(std::initializer_list<Line> lines) {
    for (const Line& line : lines) {
      m_card.addProperty(propertyWithText(line.name, line.text));
    }
  }
  VCard* operator->() { return &m_card; }

 private:
  VCard m_card;
};

TEST(VCard, isEmptyAtFirst) {
  const VCard card;
  EXPECT_TRUE(card.propertyDict().empty());
  EXPECT_EQ(card.propertiesWithName(u"FN"), nullptr);
  EXPECT_EQ(card.version(), 0U);
  EXPECT_FALSE(card.uid());
  EXPECT_EQ(card.kind(), VCardKind::individual);
  EXPECT_FALSE(card.rev());
  EXPECT_FALSE(card.hasRev());
  EXPECT_TRUE(card.propertiesInSortOrder().empty());
}

TEST(VCard, keepsPropertiesOfOneNameInOrder) {
  VCard card;
  const auto first = propertyWithText(u"tel", u"1");
  const auto second = propertyWithText(u"TEL", u"2");
  card.addProperty(first);
  card.addProperty(propertyWithText(u"FN", u"x"));
  card.addProperty(second);
  card.addProperty(first);
  EXPECT_EQ(card.propertyDict().size(), 2U);
  EXPECT_EQ(*card.propertiesWithName(u"Tel"), (VCardPropertyList{first, second, first}));
  EXPECT_EQ(first->name(), u"tel") << "its own name stays";
}

TEST(VCard, keysPropertiesByTheirFullyUpperCasedNames) {
  VCard card;
  const auto property = propertyWithText(u"x-stra\u00DFe", u"1");
  card.addProperty(property);
  EXPECT_EQ(card.propertyDict().begin()->first, u"X-STRASSE");
  EXPECT_EQ(card.propertiesWithName(u"X-STRASSE")->front(), property);
  EXPECT_EQ(card.propertiesWithName(u"X-Stra\u00DFe")->front(), property);
  EXPECT_EQ(card.propertiesWithName(u"X-\u017Ftrasse")->front(), property);
  EXPECT_EQ(card.propertiesWithName(u"X-STRASS"), nullptr);
}

TEST(VCard, keysAPropertyByTheNameItHadWhenItCame) {
  VCard card;
  const auto property = propertyWithText(u"TEL", u"1");
  card.addProperty(property);
  property->setName(u"EMAIL");
  EXPECT_EQ(card.propertiesWithName(u"EMAIL"), nullptr);
  EXPECT_EQ(card.propertiesWithName(u"TEL")->front(), property);
}

TEST(VCard, ignoresAPropertyThatIsNone) {
  VCard card;
  card.addProperty(nullptr);
  EXPECT_TRUE(card.propertyDict().empty());
}

TEST(VCard, takesAPropertyWithoutAName) {
  VCard card;
  card.addProperty(std::make_shared<VCardProperty>());
  ASSERT_NE(card.propertiesWithName(u""), nullptr);
  EXPECT_EQ(card.propertiesWithName(u"")->size(), 1U);
}

TEST(VCard, handsOutItsLiveLists) {
  VCard card;
  const auto first = propertyWithText(u"TEL", u"1");
  const auto second = propertyWithText(u"TEL", u"2");
  card.addProperty(first);
  const auto list = card.propertiesWithName(u"TEL");
  card.addProperty(second);
  EXPECT_EQ(list->size(), 2U) << "the list grows with the card";
  list->erase(list->begin());
  EXPECT_EQ(*card.propertiesWithName(u"TEL"), (VCardPropertyList{second}))
      << "and the card shrinks with the list";
  list->clear();
  ASSERT_NE(card.propertiesWithName(u"TEL"), nullptr) << "the entry is still there";
  EXPECT_TRUE(card.propertiesWithName(u"TEL")->empty());
  card.addProperty(first);
  EXPECT_EQ(*list, (VCardPropertyList{first}));
}

TEST(VCard, keepsAListAliveThatItHasRemoved) {
  VCard card;
  const auto property = propertyWithText(u"TEL", u"1");
  card.addProperty(property);
  const auto list = card.propertiesWithName(u"TEL");
  EXPECT_TRUE(card.removePropertiesWithName(u"TEL"));
  EXPECT_EQ(*list, (VCardPropertyList{property}));
  card.addProperty(propertyWithText(u"TEL", u"2"));
  EXPECT_EQ(list->size(), 1U) << "a new list is made";
}

TEST(VCard, removesWholeNames) {
  CardOf card{{u"TEL", u"1"}, {u"tel", u"2"}, {u"FN", u"x"}};
  EXPECT_FALSE(card->removePropertiesWithName(u"EMAIL"));
  EXPECT_TRUE(card->removePropertiesWithName(u"Tel"));
  EXPECT_EQ(card->propertiesWithName(u"TEL"), nullptr) << "absent, not empty";
  EXPECT_FALSE(card->removePropertiesWithName(u"TEL"));
  EXPECT_NE(card->propertiesWithName(u"FN"), nullptr);
}

TEST(VCard, removesANameWhoseListHasBecomeEmpty) {
  CardOf card{{u"TEL", u"1"}};
  card->propertiesWithName(u"TEL")->clear();
  EXPECT_TRUE(card->removePropertiesWithName(u"TEL"));
  EXPECT_EQ(card->propertiesWithName(u"TEL"), nullptr);
}

// The dictionary

TEST(VCard, handsOutAShallowCopyOfItsDictionary) {
  CardOf card{{u"TEL", u"1"}, {u"FN", u"x"}};
  VCardPropertyDict dict = card->propertyDict();
  EXPECT_EQ(dict.size(), 2U);
  EXPECT_EQ(dict.at(u"TEL"), card->propertiesWithName(u"TEL")) << "the lists are the card's own";
  dict.at(u"TEL")->clear();
  EXPECT_TRUE(card->propertiesWithName(u"TEL")->empty());
  dict.erase(u"FN");
  EXPECT_NE(card->propertiesWithName(u"FN"), nullptr) << "the dictionary is not";
}

TEST(VCard, takesADictionaryAsItIs) {
  CardOf card{{u"FN", u"gone"}};
  const auto lower = std::make_shared<VCardPropertyList>();
  const auto upper = std::make_shared<VCardPropertyList>();
  upper->push_back(propertyWithText(u"EMAIL", u"in the wrong place"));
  const VCardPropertyDict dict = {{u"tel", lower}, {u"TEL", upper}};
  card->setPropertyDict(dict);
  EXPECT_EQ(card->propertyDict(), dict);
  EXPECT_EQ(card->propertiesWithName(u"FN"), nullptr);
  EXPECT_EQ(card->propertiesWithName(u"tel"), upper) << "looked up by the upper-cased name";
  EXPECT_EQ(card->propertiesWithName(u"EMAIL"), nullptr) << "nothing is keyed anew";
  card->addProperty(propertyWithText(u"tel", u"2"));
  EXPECT_EQ(upper->size(), 2U) << "the lists are not copied";
  card->setPropertyDict(card->propertyDict());
  EXPECT_EQ(card->propertyDict(), dict);
  card->setPropertyDict({});
  EXPECT_TRUE(card->propertyDict().empty());
}

TEST(VCard, survivesListsWithoutObjects) {
  VCard card;
  const auto list = std::make_shared<VCardPropertyList>(2, nullptr);
  card.setPropertyDict({{u"VERSION", list},
                        {u"UID", list},
                        {u"KIND", list},
                        {u"REV", list},
                        {u"TEL", list},
                        {u"FN", nullptr}});
  EXPECT_EQ(card.version(), 0U);
  EXPECT_FALSE(card.uid());
  EXPECT_EQ(card.kind(), VCardKind::individual);
  EXPECT_FALSE(card.rev());
  EXPECT_TRUE(card.hasRev());
  EXPECT_EQ(card.propertiesWithName(u"TEL", u"a"), VCardPropertyList());
  EXPECT_EQ(card.description(), u"BEGIN:VCARD\r\nEND:VCARD\r\n");
}

// Groups

TEST(VCard, findsPropertiesOfAGroupWithoutRegardToCase) {
  VCard card;
  const auto first = inGroup(u"item1", u"TEL");
  const auto second = inGroup(u"Item1", u"TEL");
  card.addProperty(first);
  card.addProperty(propertyWithText(u"TEL", u"no group"));
  card.addProperty(inGroup(u"item2", u"TEL"));
  card.addProperty(inGroup(u"", u"TEL"));
  card.addProperty(second);
  card.addProperty(inGroup(u"item1", u"EMAIL"));
  EXPECT_EQ(card.propertiesWithName(u"tel", u"ITEM1"), (VCardPropertyList{first, second}));
  EXPECT_EQ(card.propertiesWithName(u"TEL", u"item3"), VCardPropertyList()) << "empty, not absent";
  EXPECT_EQ(card.propertiesWithName(u"TEL", std::nullopt), std::nullopt);
  EXPECT_EQ(card.propertiesWithName(u"ADR", u"item1"), std::nullopt);
  EXPECT_EQ(card.propertiesWithName(u"TEL", u"")->size(), 1U) << "an empty group is a group";
}

TEST(VCard, foldsGroupsInFull) {
  VCard card;
  card.addProperty(inGroup(u"Stra\u00DFe\u212A", u"TEL"));
  EXPECT_EQ(card.propertiesWithName(u"TEL", u"STRASSEk")->size(), 1U);
  EXPECT_TRUE(card.propertiesWithName(u"TEL", u"STRASEk")->empty());
}

TEST(VCard, makesANewListForAGroup) {
  VCard card;
  card.addProperty(inGroup(u"item1", u"TEL"));
  auto list = card.propertiesWithName(u"TEL", u"item1");
  list->clear();
  EXPECT_EQ(card.propertiesWithName(u"TEL")->size(), 1U);
}

TEST(VCard, findsNoGroupInAnEmptiedList) {
  CardOf card{{u"TEL", u"1"}};
  card->propertiesWithName(u"TEL")->clear();
  EXPECT_EQ(card->propertiesWithName(u"TEL", u"item1"), VCardPropertyList());
}

// What a card says about itself

TEST(VCard, takesItsVersionFromTheFirstVersionProperty) {
  EXPECT_EQ(CardOf({{u"VERSION", u"4.0"}})->version(), 4U);
  EXPECT_EQ(CardOf({{u"version", u"3.0"}, {u"VERSION", u"4.0"}})->version(), 3U);
  EXPECT_EQ(CardOf({{u"VERSION", u"none"}, {u"VERSION", u"4.0"}})->version(), 0U);
  EXPECT_EQ(CardOf({{u"FN", u"4.0"}})->version(), 0U);
  CardOf emptied{{u"VERSION", u"4.0"}};
  emptied->propertiesWithName(u"VERSION")->clear();
  EXPECT_EQ(emptied->version(), 0U);
}

TEST(VCard, takesItsIdentifierFromTheFirstUidProperty) {
  EXPECT_EQ(CardOf({{u"uid", u"a"}, {u"UID", u"b"}})->uid(), TextView(u"a"));
  EXPECT_EQ(CardOf({{u"UID", u""}, {u"UID", u"b"}})->uid(), TextView());
  VCard card;
  card.addProperty(VCardProperty::propertyWithName(u"UID", std::make_shared<VCardNValue>()));
  card.addProperty(propertyWithText(u"UID", u"b"));
  EXPECT_FALSE(card.uid()) << "the first is no text";
}

TEST(VCard, hasAKind) {
  struct Row {
    TextView text;
    VCardKind kind;
  };
  constexpr Row kRows[] = {
      {u"individual", VCardKind::individual},
      {u"org", VCardKind::org},
      {u"Group", VCardKind::group},
      {u"LOCATION", VCardKind::location},
      {u"dEvIcE", VCardKind::device},
      {u"application", VCardKind::application},
      {u"\u017F", VCardKind::other},
      {u"team", VCardKind::other},
      {u"", VCardKind::other},
      {u" group", VCardKind::other},
      {u"groups", VCardKind::other},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(CardOf({{u"KIND", row.text}})->kind(), row.kind) << testing::PrintToString(row.text);
    EXPECT_EQ(CardOf({{u"X-ADDRESSBOOKSERVER-KIND", row.text}})->kind(), row.kind)
        << testing::PrintToString(row.text);
    EXPECT_EQ(CardOf({{u"kind", row.text}, {u"X-ADDRESSBOOKSERVER-KIND", u"device"}})->kind(),
              row.kind)
        << "KIND comes first";
  }
  EXPECT_EQ(static_cast<int>(VCardKind::individual), 0);
  EXPECT_EQ(static_cast<int>(VCardKind::org), 1);
  EXPECT_EQ(static_cast<int>(VCardKind::group), 2);
  EXPECT_EQ(static_cast<int>(VCardKind::location), 3);
  EXPECT_EQ(static_cast<int>(VCardKind::device), 4);
  EXPECT_EQ(static_cast<int>(VCardKind::application), 5);
  EXPECT_EQ(static_cast<int>(VCardKind::other), 6);
}

TEST(VCard, asksForTheOtherKindWhenTheFirstHasNoText) {
  VCard card;
  card.addProperty(VCardProperty::propertyWithName(u"KIND", std::make_shared<VCardNValue>()));
  card.addProperty(propertyWithText(u"KIND", u"device"));
  card.addProperty(propertyWithText(u"X-ADDRESSBOOKSERVER-KIND", u"group"));
  EXPECT_EQ(card.kind(), VCardKind::group) << "only the first KIND counts";
  card.removePropertiesWithName(u"X-ADDRESSBOOKSERVER-KIND");
  EXPECT_EQ(card.kind(), VCardKind::individual);
  card.removePropertiesWithName(u"KIND");
  card.addProperty(VCardProperty::propertyWithName(u"KIND", std::optional<TextView>()));
  card.addProperty(propertyWithText(u"X-ADDRESSBOOKSERVER-KIND", u"org"));
  EXPECT_EQ(card.kind(), VCardKind::org);
  card.propertiesWithName(u"KIND")->clear();
  EXPECT_EQ(card.kind(), VCardKind::org);
}

TEST(VCard, tellsWhenItWasRevised) {
  VCard card;
  const auto date = VCardDateTimeValue::valueWithDate(
      std::chrono::sys_seconds(std::chrono::seconds(1'000'000'000)));
  card.addProperty(VCardProperty::propertyWithName(u"rev", date));
  card.addProperty(propertyWithText(u"REV", u"x"));
  EXPECT_TRUE(card.hasRev());
  EXPECT_EQ(card.rev(), std::chrono::sys_seconds(std::chrono::seconds(1'000'000'000)));
  CardOf text{{u"REV", u"20200101"}};
  EXPECT_TRUE(text->hasRev());
  EXPECT_FALSE(text->rev()) << "a text is no date";
  text->propertiesWithName(u"REV")->clear();
  EXPECT_TRUE(text->hasRev()) << "the entry is there";
  EXPECT_FALSE(text->rev());
  text->removePropertiesWithName(u"REV");
  EXPECT_FALSE(text->hasRev());
}

TEST(VCard, isDescribedForAnUnknownVersion) {
  EXPECT_EQ(CardOf({{u"NOTE", u"a;b"}, {u"FN", u"x"}})->description(),
            u"BEGIN:VCARD\r\nFN:x\r\nNOTE:a;b\r\nEND:VCARD\r\n");
}

TEST(VCard, isNotReadFromTextByItsBase) {
  VCard card;
  EXPECT_FALSE(card.parse(u"BEGIN:VCARD\r\nFN:x\r\nEND:VCARD", 4, nullptr));
  EXPECT_TRUE(card.propertyDict().empty());
}

TEST(VCard, holdsManyNamesAndManyProperties) {
  expectLinear(8'000, [](std::size_t size) {
    VCard card;
    for (std::size_t i = 0; i < size; ++i) {
      const std::string number = std::to_string(i);
      card.addProperty(propertyWithText(u"x-" + Text(number.begin(), number.end()), u"1"));
      card.addProperty(propertyWithText(u"TEL", u"1"));
    }
    EXPECT_EQ(card.propertyDict().size(), size + 1);
    EXPECT_EQ(card.propertiesWithName(u"TEL")->size(), size);
    for (std::size_t i = 0; i < size; ++i) {
      const std::string number = std::to_string(i);
      EXPECT_TRUE(card.removePropertiesWithName(u"X-" + Text(number.begin(), number.end())));
    }
    EXPECT_EQ(card.propertyDict().size(), 1U);
  });
}

} // namespace
} // namespace cardwright
