#include "cardwright/text_scanner.h"
#include "cardwright/vcard.h"
#include "cardwright/vcard_text_value.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <thread>
#include <vector>

namespace cardwright {
namespace {

// A card that was read knows its lines, and reads what they say with the first question.

std::shared_ptr<VCard> unreadCard() {
  return VCard::firstvCardFromString(
      TextView(u"BEGIN:VCARD\r\nVERSION:4.0\r\nitem1.TEL;TYPE=HOME;TYPE=\"a,b\":1\r\nNOTE:a\\nb\r\n"
               u"X-OWN;X-P=1:v\r\nEND:VCARD\r\n"));
}

Text textOf(const VCard& card, TextView name) {
  const auto list = card.propertiesWithName(name);
  return list == nullptr || list->empty() ? Text(u"none")
                                          : Text(list->front()->textValue().value_or(u"absent"));
}

TEST(UnreadCard, answersEachFirstQuestion) {
  EXPECT_EQ(unreadCard()->version(), 4U);
  EXPECT_EQ(unreadCard()->propertyDict().size(), 4U);
  EXPECT_EQ(unreadCard()->propertiesWithName(u"TEL", u"ITEM1")->size(), 1U);
  EXPECT_EQ(unreadCard()->propertiesInSortOrder().size(), 4U);
  EXPECT_FALSE(unreadCard()->hasRev());
  EXPECT_FALSE(unreadCard()->uid());
  EXPECT_EQ(unreadCard()->kind(), VCardKind::individual);
  EXPECT_NE(unreadCard()->description().find(u"X-OWN;X-P=1:v"), Text::npos);
}

TEST(UnreadCard, takesChangesBeforeAnyQuestion) {
  const auto added = unreadCard();
  added->addProperty(VCardProperty::propertyWithName(u"NOTE", TextView(u"second")));
  EXPECT_EQ(added->propertiesWithName(u"NOTE")->size(), 2U);
  EXPECT_EQ(textOf(*added, u"NOTE"), u"a\nb");

  const auto removed = unreadCard();
  EXPECT_TRUE(removed->removePropertiesWithName(u"note"));
  EXPECT_EQ(removed->propertyDict().size(), 3U);

  const auto replaced = unreadCard();
  replaced->setPropertyDict({});
  EXPECT_EQ(replaced->version(), 0U);
  replaced->addProperty(VCardProperty::propertyForVersion(3));
  EXPECT_EQ(replaced->propertyDict().size(), 1U);
}

std::shared_ptr<VCard> cardOfLines(const Text& lines) {
  const Text text = u"BEGIN:VCARD\r\n" + lines + u"END:VCARD\r\n";
  TextScanner scanner{TextView(text)};
  return VCard::vCardFromScanner(&scanner);
}

TEST(UnreadCard, tellsTheVersionThatItsPropertiesTell) {
  for (const TextView lines :
       {u"VERSION:2.1\r\n", u"VERSION:3.0\r\nVERSION:4.0\r\n", u"VERSION:4.0\r\nFN:a\r\n",
        u"VERSION:none\r\nVERSION:4.0\r\n", u"FN:a\r\nVERSION:3.0\r\n", u"FN:a\r\n", u"",
        u"version:3.0\r\n", u"VERSION: 3.0\r\n", u"VERSION:3.0 \r\n", u"a.VERSION:4.0\r\n",
        u"VERSION:5.0\r\nVERSION:3.0\r\n", u"VERSION:-1\r\n", u"VERSION:3.01\r\n",
        u"VERSION;VALUE=uri:3.0\r\n", u"VERSION;VALUE=integer:3.0\r\n", u"VERSION:3.\r\n 0\r\n"}) {
    const std::uint64_t unread = cardOfLines(Text(lines))->version();
    const auto card = cardOfLines(Text(lines));
    const auto list = card->propertiesWithName(u"VERSION");
    ASSERT_NE(list, nullptr) << testing::PrintToString(lines);
    EXPECT_EQ(unread, list->front()->versionValue()) << testing::PrintToString(lines);
    EXPECT_EQ(unread, card->version()) << testing::PrintToString(lines);
  }
}

TEST(UnreadCard, tellsAnotherVersionOnceItIsChanged) {
  const auto stated = cardOfLines(u"VERSION:3.0\r\nVERSION:4.0\r\n");
  const auto versions = stated->propertiesWithName(u"VERSION");
  versions->front()->setValue(VCardTextValue::valueWithText(u"2.1"));
  EXPECT_EQ(stated->version(), 2U);
  versions->erase(versions->begin());
  EXPECT_EQ(stated->version(), 4U);
  EXPECT_TRUE(stated->removePropertiesWithName(u"VERSION"));
  EXPECT_EQ(stated->version(), 0U);

  const auto parsed = unreadCard();
  const auto value = parsed->propertiesWithName(u"VERSION")->front()->value();
  EXPECT_EQ(parsed->version(), 4U);
  value->parse(u"3.0", 4, nullptr);
  EXPECT_EQ(parsed->version(), 3U);

  const auto added = unreadCard();
  added->addProperty(VCardProperty::propertyForVersion(3));
  EXPECT_EQ(added->version(), 4U);
}

TEST(UnreadCard, isReadFromATextThatIsGone) {
  std::shared_ptr<VCard> card;
  {
    const Text text = u"BEGIN:VCARD\nFN:A long enough name\nEND:VCARD\n";
    TextScanner scanner{TextView(text)};
    card = VCard::vCardFromScanner(&scanner);
  }
  EXPECT_EQ(textOf(*card, u"FN"), u"A long enough name");
}

TEST(UnreadCard, partsOutliveTheCardAndTheOthers) {
  std::shared_ptr<VCardValue> value;
  std::shared_ptr<VCardParameter> parameter;
  std::shared_ptr<VCardProperty> property;
  std::shared_ptr<VCardPropertyList> list;
  {
    const auto card = unreadCard();
    value = card->propertiesWithName(u"NOTE")->front()->value();
    property = card->propertiesWithName(u"TEL")->front();
    parameter = property->parameterWithName(u"TYPE");
    list = card->propertiesWithName(u"X-OWN");
  }
  EXPECT_EQ(property->group(), u"item1");
  property.reset();
  EXPECT_EQ(parameter->values(), (TextList{u"HOME", u"a,b"}));
  EXPECT_EQ(std::dynamic_pointer_cast<VCardTextValue>(value)->text(), u"a\nb");
  EXPECT_EQ(list->front()->textValue(), u"v");
}

TEST(UnreadCard, partsMoveToOtherCardsWithTheirTexts) {
  auto property = std::make_shared<VCardProperty>();
  {
    const auto card = unreadCard();
    const auto telephone = card->propertiesWithName(u"TEL")->front();
    property->addParameter(VCardParameter::parameterWithName(u"TYPE", u"CELL"));
    property->addParameter(telephone->parameterWithName(u"TYPE"));
    property->setGroup(telephone->group());
    property->setValue(telephone->value());
  }
  EXPECT_EQ(property->parameterWithName(u"TYPE")->values(), (TextList{u"CELL", u"HOME", u"a,b"}));
  EXPECT_EQ(property->group(), u"item1");
  EXPECT_EQ(property->textValue(), u"1");
}

TEST(UnreadCard, partsMayBeParsedAnew) {
  const auto card = unreadCard();
  const auto value = card->propertiesWithName(u"TEL")->front()->value();
  {
    const Text passing(40, u'7');
    value->parse(passing, 4, nullptr);
  }
  EXPECT_EQ(textOf(*card, u"TEL"), Text(40, u'7'));
}

TEST(UnreadCard, isReadOnceBySeveralThreads) {
  for (int round = 0; round < 50; ++round) {
    const auto card = unreadCard();
    std::array<std::shared_ptr<VCardPropertyList>, 4> lists;
    std::vector<std::thread> threads;
    for (auto& list : lists) {
      threads.emplace_back([&card, &list] { list = card->propertiesWithName(u"TEL"); });
    }
    for (std::thread& thread : threads) {
      thread.join();
    }
    for (const auto& list : lists) {
      ASSERT_EQ(list, lists.front());
    }
  }
}

} // namespace
} // namespace cardwright
