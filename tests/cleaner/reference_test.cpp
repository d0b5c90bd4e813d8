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
