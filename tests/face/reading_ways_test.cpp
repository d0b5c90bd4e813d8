#include "cardwright/face.h"
#include "cardwright/text_scanner.h"
#include "cardwright/utf8.h"
#include "cleaner/cleaning.h"
#include "reader/card_reader.h"
#include "support/card_model.h"
#include "support/random_source.h"
#include "support/seed.h"
#include "support/strange_cards.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <vector>

namespace cardwright {
namespace {

struct Outcome {
  std::vector<CardModel> cards;
  ReadReport report;
};

Outcome outcomeOf(const VCardList& cards, ReadReport report) {
  Outcome outcome;
  for (const auto& card : cards) {
    outcome.cards.push_back(modelOf(*card));
  }
  outcome.report = std::move(report);
  return outcome;
}

/// All cards at once, with or without what the cleaner noted of their lines.
Outcome readAtOnce(const Text& text, bool withSimpleLines) {
  SimpleLines simpleLines;
  if (withSimpleLines) {
    static_cast<void>(clean(text, &simpleLines));
  }
  auto store = std::make_shared<detail::LineStore>();
  store->text = text;
  ReadReport report;
  ReadRecorder recorder(&report);
  const VCardList cards = readAllCards(store, {&recorder, nullptr}, simpleLines);
  return outcomeOf(cards, std::move(report));
}

/// Card by card from a text that nobody may change.
Outcome readOneByOne(const Text& text) {
  VCardList cards;
  ReadReport report;
  ReadRecorder recorder(&report);
  for (std::size_t location = 0; location < text.size();) {
    const std::size_t before = location;
    if (auto card = readCard(text, location, {&recorder, nullptr})) {
      cards.push_back(std::move(card));
    }
    location += location == before ? 1 : 0;
  }
  return outcomeOf(cards, std::move(report));
}

void expectSame(const Outcome& one, const Outcome& other, const Text& text) {
  ASSERT_EQ(one.cards.size(), other.cards.size()) << utf8FromText(text);
  for (std::size_t i = 0; i < one.cards.size(); ++i) {
    ASSERT_EQ(differences(one.cards[i], other.cards[i]), "") << utf8FromText(text);
  }
  ASSERT_EQ(one.report.cards, other.report.cards);
  ASSERT_EQ(one.report.properties, other.report.properties);
  ASSERT_EQ(one.report.droppedLines.size(), other.report.droppedLines.size());
  for (std::size_t i = 0; i < one.report.droppedLines.size(); ++i) {
    const DroppedLine& a = one.report.droppedLines[i];
    const DroppedLine& b = other.report.droppedLines[i];
    ASSERT_EQ(a.reason, b.reason) << utf8FromText(text);
    ASSERT_EQ(a.place.offset, b.place.offset) << utf8FromText(text);
    ASSERT_EQ(a.text, b.text) << utf8FromText(text);
  }
}

void expectSameInAllWays(const Text& text) {
  const Outcome plain = readOneByOne(text);
  expectSame(plain, readAtOnce(text, false), text);
  expectSame(plain, readAtOnce(text, true), text);
}

constexpr std::array<TextView, 48> kPieces = {u"\r\n",
                                              u"\r\n",
                                              u"\r\n",
                                              u"\n",
                                              u"\r",
                                              u"\r\n ",
                                              u"\r\n\t",
                                              u"\r\n\r\n ",
                                              u"=\r\n",
                                              u"=\r\n ",
                                              u"BEGIN:VCARD\r\n",
                                              u"END:VCARD\r\n",
                                              u"end:vcard ",
                                              u"VERSION:2.1\r\n",
                                              u"VERSION:4.0\r\n",
                                              u"version;X=1:3.0\r\n",
                                              u"a.VERSION:3\\.0\r\n",
                                              u"VERSION:\r\n",
                                              u"VERSION;VALUE=date:3.0\r\n",
                                              u"FN:",
                                              u"TEL;TYPE=HOME:",
                                              u"TEL;:",
                                              u"TEL;TYPE=:",
                                              u"TEL;TYPE=\"a:b\":",
                                              u"item1.EMAIL:",
                                              u"NOTE;ENCODING=QUOTED-PRINTABLE:",
                                              u"X-ADDRESSBOOKSERVER-KIND:group",
                                              u"X-ADDRESSBOOKSERVER-MEMBER:urn:1",
                                              u";",
                                              u":",
                                              u".",
                                              u",",
                                              u"\"",
                                              u"\\",
                                              u" ",
                                              u"&#65;",
                                              u"&#10;",
                                              u"&",
                                              u"\u0301",
                                              u"\u0416",
                                              u"\u00A0",
                                              u"\u2028",
                                              u"x",
                                              u"value",
                                              u"REV:2020-01-01T12:30:00Z",
                                              u"NICKNAME:a,b",
                                              u"N:a;b",
                                              u"PHOTO;BASE64:AAAA"};

TEST(ReadingWays, giveTheSameCards) {
  RandomSource random(testSeed());
  for (int i = 0; i < 40'000; ++i) {
    Text text = random.chance(80) ? u"BEGIN:VCARD\r\n" : u"";
    for (std::size_t pieces = random.below(24); pieces > 0; --pieces) {
      text += random.oneOf(kPieces);
    }
    text += random.chance(80) ? u"\r\nEND:VCARD\r\n" : u"";
    ASSERT_NO_FATAL_FAILURE(expectSameInAllWays(text));
  }
}

TEST(ReadingWays, giveTheSameStrangeCards) {
  StrangeCards cards(testSeed());
  for (int i = 0; i < 4'000; ++i) {
    ASSERT_NO_FATAL_FAILURE(expectSameInAllWays(cards.card() + cards.card()));
  }
}

TEST(ReadingWays, placeDroppedLinesBehindJoinedOnes) {
  const std::string bytes = "BEGIN:VCARD\r\n"
                            "NOTE:a\r\n b\r\n\r\n c\n d\r e\r\n"
                            "NOTE;ENCODING=QUOTED-PRINTABLE:a=\r\n b\r\n"
                            "no colon\r\n"
                            "END:VCARD\r\n";
  for (const bool clean : {false, true}) {
    ReadReport report;
    ReadOptions options;
    options.clean = clean;
    const VCardList cards = readCards(bytes, &report, options);
    ASSERT_EQ(cards.size(), 1U);
    ASSERT_EQ(report.droppedLines.size(), 1U);
    EXPECT_EQ(report.droppedLines.front().place.line, 10U) << clean;
  }
}

TEST(ReadingWays, keepACardAliveWithoutTheOthers) {
  std::shared_ptr<VCard> last;
  {
    const Text text =
        u"BEGIN:VCARD\r\nFN:A\r\n B\r\nEND:VCARD\r\nBEGIN:VCARD\r\nFN:C\r\n D\r\nEND:VCARD";
    last = VCard::vCardsFromString(TextView(text)).value().back();
  }
  EXPECT_EQ(last->propertiesWithName(u"FN")->front()->textValue(), u"CD");
}

} // namespace
} // namespace cardwright
