#include "cardwright/date_formatter.h"
#include "cardwright/face.h"
#include "cardwright/text_scanner.h"
#include "cardwright/vcard.h"
#include "cardwright/vcard_uri_value.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

namespace cardwright {
namespace {

/// The cards of a text to which nothing was done before.
VCardList cardsOf(TextView text) {
  VCardList cards;
  TextScanner scanner(text);
  while (!scanner.isAtEnd()) {
    if (auto card = VCard::vCardFromScanner(&scanner)) {
      cards.push_back(std::move(card));
    }
  }
  return cards;
}

TextList textsOf(const std::shared_ptr<VCard>& card, TextView name) {
  TextList texts;
  if (const auto list = card->propertiesWithName(name)) {
    for (const auto& property : *list) {
      texts.emplace_back(property->textValue().value_or(u"(none)"));
    }
  }
  return texts;
}

TEST(CardReader, addsAVersionToACardWithoutOne) {
  const VCardList cards = cardsOf(u"BEGIN:VCARD\r\nFN:A\r\nEND:VCARD\r\n");
  ASSERT_EQ(cards.size(), 1U);
  EXPECT_EQ(cards[0]->propertyDict().size(), 2U);
  EXPECT_EQ(textsOf(cards[0], u"FN"), TextList{u"A"});
  EXPECT_EQ(textsOf(cards[0], u"VERSION"), TextList{u"3.0"});
}

TEST(CardReader, keepsTheVersionThatIsThere) {
  EXPECT_EQ(textsOf(cardsOf(u"BEGIN:VCARD\nVERSION:2.1\nEND:VCARD").at(0), u"VERSION"),
            TextList{u"2.1"});
  // No number: the card gets one that has.
  EXPECT_EQ(textsOf(cardsOf(u"BEGIN:VCARD\nVERSION:new\nEND:VCARD").at(0), u"VERSION"),
            (TextList{u"new", u"3.0"}));
  // No text: the line is no version at all.
  EXPECT_EQ(textsOf(cardsOf(u"BEGIN:VCARD\nVERSION;VALUE=date:4.0\nEND:VCARD").at(0), u"VERSION"),
            TextList{u"3.0"});
}

TEST(CardReader, takesTheFirstVersionThatStatesANumber) {
  const auto card = cardsOf(u"BEGIN:VCARD\nVERSION:x\nPHOTO:a\nVERSION:4.0\nPHOTO:b\n"
                            u"VERSION:3.0\nPHOTO:c\nEND:VCARD")
                        .at(0);
  const auto photos = card->propertiesWithName(u"PHOTO");
  const auto isUri = [&photos](std::size_t at) {
    return std::dynamic_pointer_cast<VCardURIValue>(photos->at(at)->value()) != nullptr;
  };
  EXPECT_FALSE(isUri(0));
  EXPECT_TRUE(isUri(1));
  EXPECT_TRUE(isUri(2));
  EXPECT_EQ(textsOf(card, u"VERSION"), (TextList{u"x", u"4.0", u"3.0"}));
}

TEST(CardReader, readsCardsInTextOrderAndSkipsWhatStandsBetween) {
  const VCardList cards = cardsOf(u"junk\r\nBEGIN:VCARD\r\nFN:A\r\nEND:VCARD\r\nmore junk\r\n\r\n"
                                  u"begin:vcard\r\nFN:B\r\nEnd:vCard\r\njunk");
  ASSERT_EQ(cards.size(), 2U);
  EXPECT_EQ(textsOf(cards[0], u"FN"), TextList{u"A"});
  EXPECT_EQ(textsOf(cards[1], u"FN"), TextList{u"B"});
}

TEST(CardReader, acceptsBlanksAroundFrameLines) {
  const VCardList cards =
      cardsOf(u"\u2028 \t\u00A0BEGIN:VCARD\u00A0\r\nFN:A\r\n\u3000END:VCARD \r\nBEGIN:VCARD");
  ASSERT_EQ(cards.size(), 2U);
  EXPECT_EQ(textsOf(cards[0], u"FN"), TextList{u"A"});
}

TEST(CardReader, startsACardWithoutBegin) {
  const VCardList cards = cardsOf(u"FN:A\r\nTEL:1\r\nEND:VCARD\r\nFN:B");
  ASSERT_EQ(cards.size(), 2U);
  EXPECT_EQ(textsOf(cards[0], u"FN"), TextList{u"A"});
  EXPECT_EQ(textsOf(cards[0], u"TEL"), TextList{u"1"});
  EXPECT_EQ(textsOf(cards[1], u"FN"), TextList{u"B"});
}

TEST(CardReader, startsACardAtALineThatIsThenDropped) {
  const VCardList cards = cardsOf(u":no name\r\nEND:VCARD");
  ASSERT_EQ(cards.size(), 1U);
  EXPECT_EQ(cards[0]->propertyDict().size(), 1U);
}

TEST(CardReader, readsACardWithoutEndToTheEndOfTheText) {
  const VCardList cards = cardsOf(u"BEGIN:VCARD\r\nFN:A\r\nTEL:1");
  ASSERT_EQ(cards.size(), 1U);
  EXPECT_EQ(textsOf(cards[0], u"TEL"), TextList{u"1"});
}

TEST(CardReader, makesACardOfAStrayEnd) {
  const VCardList cards = cardsOf(u"END:VCARD\r\nBEGIN:VCARD\r\nFN:A\r\nEND:VCARD");
  ASSERT_EQ(cards.size(), 2U);
  EXPECT_EQ(cards[0]->propertyDict().size(), 1U);
  EXPECT_EQ(textsOf(cards[0], u"VERSION"), TextList{u"3.0"});
  EXPECT_EQ(textsOf(cards[1], u"FN"), TextList{u"A"});
}

TEST(CardReader, flattensNestedCards) {
  const VCardList cards = cardsOf(u"BEGIN:VCARD\r\nFN:A\r\nAGENT:\r\nBEGIN:VCARD\r\nFN:B\r\n"
                                  u"END:VCARD\r\nTEL:1\r\nEND:VCARD");
  ASSERT_EQ(cards.size(), 2U);
  EXPECT_EQ(textsOf(cards[0], u"FN"), (TextList{u"A", u"B"}));
  EXPECT_EQ(textsOf(cards[0], u"BEGIN"), TextList{u"VCARD"});
  EXPECT_EQ(textsOf(cards[1], u"TEL"), TextList{u"1"});
}

TEST(CardReader, dropsLinesThatCannotBeReadAndKeepsTheRest) {
  const auto card =
      cardsOf(u"BEGIN:VCARD\r\nno colon\r\nNOTE;X-EMPTY=:a\r\nNOTE;:b\r\nNOTE:c\r\nEND:VCARD")
          .at(0);
  EXPECT_EQ(textsOf(card, u"NOTE"), TextList{u"c"});
  EXPECT_EQ(card->propertyDict().size(), 2U);
}

TEST(CardReader, parsesWithoutAVersionUntilThereIsOne) {
  const auto card = cardsOf(u"BEGIN:VCARD\nPHOTO:a\nVERSION:4.0\nPHOTO:b\nEND:VCARD").at(0);
  const auto photos = card->propertiesWithName(u"PHOTO");
  EXPECT_EQ(std::dynamic_pointer_cast<VCardURIValue>(photos->at(0)->value()), nullptr);
  EXPECT_NE(std::dynamic_pointer_cast<VCardURIValue>(photos->at(1)->value()), nullptr);
}

TEST(CardReader, decodesNumericEntitiesBeforeTheLineIsParsed) {
  const auto card = cardsOf(u"BEGIN:VCARD\nTEL&#59;HOME&#x3a;1\nNOTE:Caf&#233;&#10;x\nEND:VCARD");
  const auto tel = card.at(0)->propertiesWithName(u"TEL");
  ASSERT_NE(tel, nullptr);
  EXPECT_EQ(tel->front()->textValue(), u"1");
  EXPECT_EQ(tel->front()->valueOfParameterWithName(u"TYPE"), u"HOME");
  EXPECT_EQ(textsOf(card.at(0), u"NOTE"), TextList{u"Caf\u00E9\nx"});
  EXPECT_EQ(cardsOf(u"BEGIN&#58;VCARD\nFN:A\nEND&#x3A;VCARD\nFN:B").size(), 2U);
}

TEST(CardReader, cutsMergedLinesAndDropsWhatFollowsAnEndOnTheSameLine) {
  const auto card = cardsOf(u"BEGIN:VCARD\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:A;"
                            u"X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:B;END:VCARD;TEL:1\nFN:B")
                        .at(0);
  EXPECT_EQ(textsOf(card, u"X-ADDRESSBOOKSERVER-MEMBER"), (TextList{u"urn:uuid:A", u"urn:uuid:B"}));
  EXPECT_EQ(card->propertiesWithName(u"TEL"), nullptr);
  EXPECT_EQ(card->propertiesWithName(u"FN"), nullptr);
}

TEST(CardReader, keepsPropertiesOfANameInTextOrder) {
  const auto card = cardsOf(u"BEGIN:VCARD\ntel:1\nTEL:2\nTel:3\nEND:VCARD").at(0);
  EXPECT_EQ(textsOf(card, u"TEL"), (TextList{u"1", u"2", u"3"}));
}

TEST(CardReader, leavesTheScannerBehindTheCard) {
  const Text first = u"BEGIN:VCARD\r\nFN:A\r\nEND:VCARD\r\n\r\n";
  TextScanner scanner(first + u"BEGIN:VCARD\r\nFN:B\r\nEND:VCARD");
  ASSERT_NE(VCard::vCardFromScanner(&scanner), nullptr);
  EXPECT_EQ(scanner.scanLocation(), first.size());
  ASSERT_NE(VCard::vCardFromScanner(&scanner), nullptr);
  EXPECT_TRUE(scanner.isAtEnd());
  EXPECT_EQ(VCard::vCardFromScanner(&scanner), nullptr);
  scanner.setScanLocation(1000);
  EXPECT_EQ(VCard::vCardFromScanner(&scanner), nullptr);
  EXPECT_EQ(VCard::vCardFromScanner(nullptr), nullptr);
}

TEST(CardReader, consumesBlanksEvenWhereThereIsNoCard) {
  TextScanner scanner(TextView(u" \t\r\n\v\f\u0085\u00A0\u2028\u2029"));
  EXPECT_EQ(VCard::vCardFromScanner(&scanner), nullptr);
  EXPECT_TRUE(scanner.isAtEnd());
}

TEST(ReadingCalls, tellAbsentTextFromTextWithoutCards) {
  EXPECT_EQ(VCard::vCardsFromString(std::optional<TextView>()), std::nullopt);
  EXPECT_EQ(VCard::firstvCardFromString(std::optional<TextView>()), nullptr);
  for (const TextView text : {TextView(u""), TextView(u" \r\n"), TextView(u"junk\r\n\u200B")}) {
    const auto cards = VCard::vCardsFromString(text);
    ASSERT_TRUE(cards);
    EXPECT_TRUE(cards->empty());
    EXPECT_EQ(VCard::firstvCardFromString(text), nullptr);
  }
}

TEST(ReadingCalls, giveTheSameCardsForUtf8AndForText) {
  const std::string utf8 = "BEGIN:VCARD\r\nFN:Zo\xC3\xAB\r\nEND:VCARD\r\n";
  const VCardList cards = VCard::vCardsFromString(std::string_view(utf8));
  ASSERT_EQ(cards.size(), 1U);
  EXPECT_EQ(textsOf(cards[0], u"FN"), TextList{u"Zo\u00EB"});
  EXPECT_EQ(textsOf(VCard::firstvCardFromString(std::string_view(utf8)), u"FN"),
            TextList{u"Zo\u00EB"});
  EXPECT_EQ(textsOf(readCards(utf8).at(0), u"FN"), TextList{u"Zo\u00EB"});
}

TEST(ReadingCalls, leaveThePlaceForSummariesUntouchedWhenNothingWasCleaned) {
  TextList summaries = {u"from before"};
  static_cast<void>(VCard::vCardsFromString(
      TextView(u"BEGIN:VCARD\r\nVERSION:3.0\r\nFN:A\r\nEND:VCARD\r\n"), &summaries));
  EXPECT_EQ(summaries, TextList{u"from before"});
}

TEST(ReadCards, takesAByteOrderMarkOffTheStart) {
  const VCardList cards = readCards("\xEF\xBB\xBF"
                                    "BEGIN:VCARD\r\nFN:A\r\nEND:VCARD\r\n");
  ASSERT_EQ(cards.size(), 1U);
  EXPECT_EQ(cards[0]->propertyDict().size(), 2U);
}

TEST(ReadCards, survivesBytesThatAreNoText) {
  std::string bytes;
  for (int i = 0; i < 4096; ++i) {
    bytes.push_back(static_cast<char>((i * 7919) >> 3));
  }
  static_cast<void>(readCards(bytes));
  EXPECT_TRUE(readCards("").empty());
  EXPECT_TRUE(readCards(std::string(1000, '\0')).empty());
}

TEST(ReadCards, takesBytesForWhatTheyLookLike) {
  const auto nameIn = [](std::string_view bytes) {
    return Text(readCards(bytes).at(0)->propertiesWithName(u"FN")->front()->textValue().value());
  };
  EXPECT_EQ(nameIn("FN:Ren\xE9"), u"Ren\u00E9");
  EXPECT_EQ(nameIn("FN:\xC3\xA9\xC3\xA9\xFF"), u"\u00E9\u00E9");
}

} // namespace
} // namespace cardwright
