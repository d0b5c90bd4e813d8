#include "support/random_source.h"
#include "support/reference_cleaning.h"
#include "support/seed.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <array>

namespace cardwright {
namespace {

constexpr std::array<TextView, 44> kPieces = {
    u"TEL:1",
    u"EMAIL:x@example.com",
    u"NOTE:call me",
    u"&#13;&#10;",
    u"&#10;",
    u"X-ABLABEL:Home",
    u"X-ABLABEL",
    u"item1.",
    u"item2.TEL;TYPE=HOME:",
    u"X-ADDRESSBOOKSERVER-MEMBER:",
    u"urn:uuid:A",
    u"urn:uuid:B",
    u"X-CREATED:1",
    u"X-CREATED:2",
    u"X-ABSHOWAS:COMPANY",
    u"\r\n",
    u"\r\n",
    u"\n",
    u"\r",
    u"\r\n ",
    u"=",
    u"=\r\n",
    u"NOTE;ENCODING=QUOTED-PRINTABLE:a",
    u"END:VCARD\r\nBEGIN:VCARD",
    u"END:VCARD",
    u"BEGIN:VCARD\r\n",
    u"FN:Jane Doe",
    u"N:Doe;Jane;;;",
    u";",
    u":",
    u"\"",
    u" ",
    u"\t",
    u".",
    u"\\",
    u"x",
    u"7",
    u"\u00E9",
    u"e\u0301",
    u"https://example.com/",
    u"VND-63-SENSITIVE-CONTENT-CONFIG:1",
    u"X-UNKNOWN:1",
    u"a long run of prose that will have to be folded when it is written again ",
    u"\u4E2D\u6587"};

Text damagedText(RandomSource& random) {
  const TextView lineEnd = random.chance(20) ? u"\r\r\n" : random.chance(20) ? u"\n" : u"\r\n";
  Text text = u"BEGIN:VCARD";
  text += lineEnd;
  for (std::size_t i = random.below(30); i > 0; --i) {
    text += random.oneOf(kPieces);
    if (random.chance(40)) {
      text += lineEnd;
    }
  }
  text += lineEnd;
  text += u"END:VCARD";
  text += lineEnd;
  return text;
}

TEST(Cleaning, doesWhatThePlainPassesDo) {
  RandomSource random(testSeed());
  std::size_t cleaned = 0;
  for (int i = 0; i < 20'000; ++i) {
    const Text text = damagedText(random);
    VCardCleaner cleaner;
    ReferenceCleaning reference;
    ASSERT_EQ(cleaner.clean(text), reference.clean(text)) << testing::PrintToString(text);
    ASSERT_EQ(cleaner.lastCleaningSummaries(), reference.summaries);
    ASSERT_EQ(cleaner.lastDidClean(), reference.didClean);
    cleaned += cleaner.lastDidClean() ? 1 : 0;
  }
  EXPECT_GT(cleaned, 1000U);
}

/// What decides whether a line may be passed over at a glance: folds and soft breaks that tear
/// names and signs, marks that join them, and signs in headers.
constexpr std::array<TextView, 54> kSeams = {u"\r\n ",
                                             u"\r\n ",
                                             u"\r\n\t",
                                             u"\n ",
                                             u"\r ",
                                             u"\r\n",
                                             u"\r\n\r\n",
                                             u"\n\n ",
                                             u"=\r\n ",
                                             u"=\r\n",
                                             u"= \r\n",
                                             u"\u0301",
                                             u" \u0301",
                                             u":\u0301",
                                             u"=\u0301",
                                             u"X",
                                             u"-",
                                             u"X-",
                                             u"V",
                                             u"N",
                                             u"ND-",
                                             u"D-",
                                             u"VND-",
                                             u"ABLABEL",
                                             u"ABADR",
                                             u"d-x",
                                             u"TEL",
                                             u"TEL:",
                                             u"tel:1",
                                             u"12:30",
                                             u"https:",
                                             u"NOTE:",
                                             u"NOTE",
                                             u"&",
                                             u"#10;",
                                             u"&#13;",
                                             u"\"",
                                             u";",
                                             u"\\",
                                             u"item1.",
                                             u"URL:",
                                             u"x",
                                             u"\u0436",
                                             u"\u4E2D",
                                             u"END:VCARD",
                                             u"NOTE;ENCODING=QUOTED-PRINTABLE:",
                                             u"urn:uuid:1-d-2",
                                             u"mailto:",
                                             u"xmpp:",
                                             u"geo:",
                                             u"A=\"b,c\"",
                                             u";TYPE=\"",
                                             u"\",\"",
                                             u"="};

TEST(Cleaning, doesWhatThePlainPassesDoAtSeams) {
  RandomSource random(testSeed() + 2);
  for (int i = 0; i < 60'000; ++i) {
    Text text = u"BEGIN:VCARD\r\n";
    for (std::size_t lines = 1 + random.below(3); lines > 0; --lines) {
      text += random.oneOf(
          std::array<TextView, 11>{u"FN:", u"TEL;TYPE=A:", u"X-ABLABEL:", u"REV:", u"item1.NOTE:",
                                   u"NOTE:", u"N;ENCODING=QUOTED-PRINTABLE:", u"UID:",
                                   u"TEL;TYPE=\"a,b\":", u"ADR;LABEL=\"", u"FN:urn:uuid:"});
      for (std::size_t pieces = random.below(9); pieces > 0; --pieces) {
        text += random.oneOf(kSeams);
      }
      text += u"\r\n";
    }
    text += random.chance(90) ? u"END:VCARD\r\n" : u"end:vcard";
    VCardCleaner cleaner;
    ReferenceCleaning reference;
    ASSERT_EQ(cleaner.clean(text), reference.clean(text)) << testing::PrintToString(text);
    ASSERT_EQ(cleaner.lastCleaningSummaries(), reference.summaries);
    ASSERT_EQ(cleaner.lastDidClean(), reference.didClean) << testing::PrintToString(text);
  }
}

TEST(Cleaning, comesToAnEndWhenItIsRepeated) {
  RandomSource random(testSeed() + 1);
  constexpr int kMostRounds = 12;
  std::size_t cleanedOnce = 0;
  std::size_t cleanedAgain = 0;
  for (int i = 0; i < 20'000; ++i) {
    Text text = damagedText(random);
    VCardCleaner cleaner;
    int rounds = 0;
    for (text = cleaner.clean(text); cleaner.lastDidClean() && rounds < kMostRounds; ++rounds) {
      text = cleaner.clean(text);
    }
    ASSERT_LT(rounds, kMostRounds) << testing::PrintToString(text);
    cleanedOnce += rounds > 0 ? 1 : 0;
    cleanedAgain += rounds > 1 ? 1 : 0;
  }
  std::cout << cleanedAgain << " of " << cleanedOnce << " texts needed more than one cleaning\n";
}

} // namespace
} // namespace cardwright
