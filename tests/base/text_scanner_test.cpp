#include "cardwright/text_scanner.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace cardwright {
namespace {

const CharacterSet kLineEnds = {{u'\r', u'\r'}, {u'\n', u'\n'}};
const CharacterSet kDigits = {{u'0', u'9'}};

constexpr TextView kUntouched = u"untouched";

TEST(TextScanner, startsAtTheFrontAndEndsBehindTheLastUnit) {
  TextScanner scanner(TextView(u"ab"));
  EXPECT_EQ(scanner.scanLocation(), 0U);
  EXPECT_FALSE(scanner.isAtEnd());
  scanner.setScanLocation(1);
  EXPECT_FALSE(scanner.isAtEnd());
  scanner.setScanLocation(2);
  EXPECT_TRUE(scanner.isAtEnd());
  EXPECT_TRUE(TextScanner(TextView()).isAtEnd());
}

TEST(TextScanner, readsUpToASet) {
  TextScanner scanner(TextView(u"FN:a\r\nTEL:1"));
  TextView scanned;
  EXPECT_TRUE(scanner.scanUpToCharactersFromSet(kLineEnds, &scanned));
  EXPECT_EQ(scanned, u"FN:a");
  EXPECT_EQ(scanner.scanLocation(), 4U);

  scanned = kUntouched;
  EXPECT_FALSE(scanner.scanUpToCharactersFromSet(kLineEnds, &scanned)) << "one stands here";
  EXPECT_EQ(scanned, kUntouched);
  EXPECT_EQ(scanner.scanLocation(), 4U);

  scanner.setScanLocation(6);
  EXPECT_TRUE(scanner.scanUpToCharactersFromSet(kLineEnds, &scanned)) << "the end stops too";
  EXPECT_EQ(scanned, u"TEL:1");
  EXPECT_TRUE(scanner.isAtEnd());
  EXPECT_FALSE(scanner.scanUpToCharactersFromSet(kLineEnds, &scanned));
}

TEST(TextScanner, readsWhileInASet) {
  TextScanner scanner(TextView(u"12a34"));
  TextView scanned = kUntouched;
  EXPECT_TRUE(scanner.scanCharactersFromSet(kDigits, &scanned));
  EXPECT_EQ(scanned, u"12");
  EXPECT_EQ(scanner.scanLocation(), 2U);

  scanned = kUntouched;
  EXPECT_FALSE(scanner.scanCharactersFromSet(kDigits, &scanned));
  EXPECT_EQ(scanned, kUntouched);
  EXPECT_EQ(scanner.scanLocation(), 2U);

  scanner.setScanLocation(3);
  EXPECT_TRUE(scanner.scanCharactersFromSet(kDigits, &scanned));
  EXPECT_EQ(scanned, u"34");
  EXPECT_TRUE(scanner.isAtEnd());
  EXPECT_FALSE(scanner.scanCharactersFromSet(kDigits, &scanned));
}

TEST(TextScanner, readsExactlyAString) {
  TextScanner scanner(TextView(u"BEGIN:VCARD"));
  TextView scanned = kUntouched;
  EXPECT_FALSE(scanner.scanString(u"begin", &scanned));
  EXPECT_FALSE(scanner.scanString(u"BEGIN:VCARDS", &scanned)) << "longer than the text";
  EXPECT_FALSE(scanner.scanString(u"VCARD", &scanned)) << "not at the location";
  EXPECT_EQ(scanned, kUntouched);
  EXPECT_EQ(scanner.scanLocation(), 0U);

  EXPECT_TRUE(scanner.scanString(u"BEGIN:", &scanned));
  EXPECT_EQ(scanned, u"BEGIN:");
  EXPECT_EQ(scanner.scanLocation(), 6U);
  EXPECT_TRUE(scanner.scanString(u"VCARD", &scanned));
  EXPECT_TRUE(scanner.isAtEnd());
  EXPECT_FALSE(scanner.scanString(u"V", &scanned));
}

TEST(TextScanner, readsUpToAString) {
  TextScanner scanner(TextView(u"aEaENDb"));
  TextView scanned = kUntouched;
  EXPECT_TRUE(scanner.scanUpToString(u"END", &scanned));
  EXPECT_EQ(scanned, u"aEa");
  EXPECT_EQ(scanner.scanLocation(), 3U);

  scanned = kUntouched;
  EXPECT_FALSE(scanner.scanUpToString(u"END", &scanned)) << "it stands here";
  EXPECT_EQ(scanned, kUntouched);
  EXPECT_EQ(scanner.scanLocation(), 3U);

  scanner.setScanLocation(4);
  EXPECT_TRUE(scanner.scanUpToString(u"END", &scanned)) << "the end stops too";
  EXPECT_EQ(scanned, u"NDb");
  EXPECT_TRUE(scanner.isAtEnd());
  EXPECT_FALSE(scanner.scanUpToString(u"END", &scanned));
}

TEST(TextScanner, readsUpToAStringThatBeginsInItself) {
  TextScanner scanner(TextView(u"xaabaabaaab"));
  EXPECT_TRUE(scanner.scanUpToString(u"aabaaab"));
  EXPECT_EQ(scanner.scanLocation(), 4U);
  scanner.setScanLocation(5);
  EXPECT_TRUE(scanner.scanUpToString(u"aabaaab")) << "it began before";
  EXPECT_TRUE(scanner.isAtEnd());
}

TEST(TextScanner, readsNothingForAnEmptyString) {
  TextScanner scanner(TextView(u"ab"));
  EXPECT_FALSE(scanner.scanString(u""));
  EXPECT_FALSE(scanner.scanUpToString(u""));
  EXPECT_EQ(scanner.scanLocation(), 0U);
}

TEST(TextScanner, needsNoPlaceForWhatItReads) {
  TextScanner scanner(TextView(u"12ab\rEND"));
  EXPECT_TRUE(scanner.scanCharactersFromSet(kDigits));
  EXPECT_TRUE(scanner.scanString(u"a"));
  EXPECT_TRUE(scanner.scanUpToCharactersFromSet(kLineEnds));
  EXPECT_EQ(scanner.scanLocation(), 4U);
  EXPECT_TRUE(scanner.scanUpToString(u"END"));
  EXPECT_EQ(scanner.scanLocation(), 5U);
}

TEST(TextScanner, skipsNothingByItself) {
  TextScanner scanner(TextView(u" \t\r\n 12"));
  EXPECT_FALSE(scanner.scanCharactersFromSet(kDigits));
  EXPECT_FALSE(scanner.scanString(u"12"));
  EXPECT_EQ(scanner.scanLocation(), 0U);
  TextView scanned;
  EXPECT_TRUE(scanner.scanUpToString(u"12", &scanned));
  EXPECT_EQ(scanned, u" \t\r\n ");
}

TEST(TextScanner, isAtItsEndBehindTheEnd) {
  for (const std::size_t location :
       {std::size_t{3}, std::size_t{4}, std::numeric_limits<std::size_t>::max()}) {
    TextScanner scanner(TextView(u"123"));
    scanner.setScanLocation(location);
    EXPECT_TRUE(scanner.isAtEnd());
    TextView scanned = kUntouched;
    EXPECT_FALSE(scanner.scanUpToCharactersFromSet(kLineEnds, &scanned));
    EXPECT_FALSE(scanner.scanCharactersFromSet(kDigits, &scanned));
    EXPECT_FALSE(scanner.scanString(u"1", &scanned));
    EXPECT_FALSE(scanner.scanString(u"", &scanned));
    EXPECT_FALSE(scanner.scanUpToString(u"1", &scanned));
    EXPECT_FALSE(scanner.scanUpToString(u"", &scanned));
    EXPECT_EQ(scanned, kUntouched);
    EXPECT_EQ(scanner.scanLocation(), location);
  }
}

TEST(TextScanner, countsCodeUnitsAndReadsLoneSurrogates) {
  const Text text = {char16_t{0xDC00}, u'1', char16_t{0xD83D}, char16_t{0xDE00}, char16_t{0xD800}};
  TextScanner scanner{TextView(text)};
  TextView scanned;
  EXPECT_TRUE(scanner.scanUpToCharactersFromSet(kDigits, &scanned));
  EXPECT_EQ(scanned, TextView(text).substr(0, 1));
  scanner.setScanLocation(2);
  EXPECT_TRUE(scanner.scanUpToCharactersFromSet(kDigits, &scanned));
  EXPECT_EQ(scanned, TextView(text).substr(2));
  EXPECT_EQ(scanner.scanLocation(), 5U);
}

TEST(TextScanner, scansViewsOfTheTextItWasGiven) {
  const Text text = u"12345";
  TextScanner scanner{TextView(text)};
  scanner.setScanLocation(2);
  TextView scanned;
  EXPECT_TRUE(scanner.scanCharactersFromSet(kDigits, &scanned));
  EXPECT_EQ(scanned.data(), text.data() + 2);
  EXPECT_EQ(scanner.string().data(), text.data());
}

TEST(TextScanner, keepsATextThatIsHandedOver) {
  Text text(100, u'1');
  TextScanner scanner(std::move(text));
  TextScanner copy = scanner;
  scanner = TextScanner(TextView());
  TextView scanned;
  EXPECT_TRUE(copy.scanCharactersFromSet(kDigits, &scanned));
  EXPECT_EQ(scanned, Text(100, u'1'));
  EXPECT_TRUE(scanner.isAtEnd());
}

TEST(TextScanner, decodesUtf8) {
  TextScanner scanner(std::string_view("1\xC3\xA9\xFF"));
  EXPECT_EQ(scanner.string(), u"1\u00E9\uFFFD");
}

} // namespace
} // namespace cardwright
