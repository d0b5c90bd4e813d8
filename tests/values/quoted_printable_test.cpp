#include "cardwright/vcard_utilities.h"
#include "support/combinations.h"
#include "support/seed.h"
#include "support/text_printer.h"
#include "values/quoted_printable.h"

#include <gtest/gtest.h>

#include <random>

namespace cardwright {
namespace {

using Decoded = std::optional<Text>;

Decoded decoded(TextView text, std::optional<TextView> charset = u"utf-8") {
  return VCardUtilities::stringFromQuotedPrintableStringWithCharset(text, charset);
}

TEST(QuotedPrintable, decodesPairsOfUpperCaseDigits) {
  EXPECT_EQ(decoded(u"=41"), u"A");
  EXPECT_EQ(decoded(u"=0A"), u"\n");
  EXPECT_EQ(decoded(u"a=3Db"), u"a=b");
  EXPECT_EQ(decoded(u"=C3=A9", u"iso-8859-1"), u"Ã©");
  EXPECT_EQ(decoded(u"=C3=A9", u"UTF-8"), u"é");
  EXPECT_EQ(decoded(u"=C3=A9", std::nullopt), u"é");
  EXPECT_EQ(decoded(u"=F4=8F=BF=BF"), u"\U0010FFFF");
  EXPECT_EQ(decoded(u"=ED=9F=BF=EF=BF=BD"), u"\uD7FF\uFFFD");
}

TEST(QuotedPrintable, dropsOnlyTheEqualsSignOfWhatIsNoPair) {
  EXPECT_EQ(decoded(u"=3d"), u"3d");
  EXPECT_EQ(decoded(u"=0d"), u"0d");
  EXPECT_EQ(decoded(u"=4G"), u"4G");
  EXPECT_EQ(decoded(u"=/1"), u"/1");
  EXPECT_EQ(decoded(u"= 41"), u" 41");
}

TEST(QuotedPrintable, readsTheCharactersBetweenNineAndAAsThreeToNine) {
  EXPECT_EQ(decoded(u"=41=4:=4;=4<=4==4>=4?=4@"), u"ACDEFGHI");
  // "=" is one of them.
  EXPECT_EQ(decoded(u"==41"), u"d1");
  EXPECT_EQ(decoded(u"=4=41"), u"F41");
  EXPECT_EQ(decoded(u"=:1=@1", u"iso-8859-1"), u"1\u0091");
}

TEST(QuotedPrintable, skipsSoftBreaks) {
  EXPECT_EQ(decoded(u"a=\nb"), u"ab");
  EXPECT_EQ(decoded(u"a=\r\nb"), u"ab");
  // What follows the CR is taken for its LF.
  EXPECT_EQ(decoded(u"a=\rbc"), u"ac");
  EXPECT_EQ(decoded(u"a=\r=41"), u"a41");
}

TEST(QuotedPrintable, endsAtAnIncompletePair) {
  EXPECT_EQ(decoded(u"a="), u"a");
  EXPECT_EQ(decoded(u"a=4"), u"a");
  EXPECT_EQ(decoded(u"a=="), u"a");
  EXPECT_EQ(decoded(u"a=\r"), u"a");
  EXPECT_EQ(decoded(u"=\r"), u"");
  EXPECT_EQ(decoded(u"a=\n"), u"a");
  EXPECT_EQ(decoded(u""), u"");
}

TEST(QuotedPrintable, isCutAtAZeroByte) {
  EXPECT_EQ(decoded(u"a=00b"), u"a");
  EXPECT_EQ(decoded(TextView(u"a\0b", 3)), u"a");
  EXPECT_EQ(decoded(u"=00=C3"), u"");
  EXPECT_EQ(decoded(u"=41=00=42=00", u"utf-16le"), u"A");
}

TEST(QuotedPrintable, leavesTextOutsideAsciiAsItIs) {
  EXPECT_EQ(decoded(u"=41é"), u"=41é");
  EXPECT_EQ(decoded(u"=41\u0080"), u"=41\u0080");
  EXPECT_EQ(decoded(Text(u"=41") + char16_t{0xD800}), Text(u"=41") + char16_t{0xD800});
}

TEST(QuotedPrintable, repairsBytesThatTheCharsetCannotHold) {
  EXPECT_EQ(decoded(u"a=FF=C3=A9", u"utf-8"), u"aé");
  EXPECT_EQ(decoded(u"a=E9", u"us-ascii"), u"");
  EXPECT_EQ(decoded(u"a=E9", u"nonsense"), u"\u61E9");
  EXPECT_EQ(decoded(u"aa=E9", std::nullopt), u"aaé");
}

/// The digits' values by look-up; 16 for what is none.
unsigned valueOf(char16_t digit) {
  constexpr TextView kDigits = u"0123456789";
  constexpr TextView kFromThree = u":;<=>?@";
  constexpr TextView kFromTen = u"ABCDEF";
  if (const std::size_t at = kDigits.find(digit); at != TextView::npos) {
    return static_cast<unsigned>(at);
  }
  if (const std::size_t at = kFromThree.find(digit); at != TextView::npos) {
    return static_cast<unsigned>(at) + 3;
  }
  if (const std::size_t at = kFromTen.find(digit); at != TextView::npos) {
    return static_cast<unsigned>(at) + 10;
  }
  return 16;
}

/// The same by taking pieces off the front of the text.
std::optional<std::string> bytesPieceByPiece(Text text) {
  std::string bytes;
  for (const char16_t unit : text) {
    if (unit > 0x7F) {
      return std::nullopt;
    }
  }
  while (!text.empty()) {
    if (text[0] != u'=') {
      bytes.push_back(static_cast<char>(text[0]));
      text.erase(0, 1);
    } else if (text.starts_with(u"=\n")) {
      text.erase(0, 2);
    } else if (text.starts_with(u"=\r")) {
      text.erase(0, 3);
    } else if (text.size() < 3) {
      text.clear();
    } else if (valueOf(text[1]) < 16 && valueOf(text[2]) < 16) {
      bytes.push_back(static_cast<char>(valueOf(text[1]) * 16 + valueOf(text[2])));
      text.erase(0, 3);
    } else {
      text.erase(0, 1);
    }
  }
  return bytes.substr(0, bytes.find('\0'));
}

TEST(QuotedPrintable, givesTheBytesOfAPlainReaderForAllShortTexts) {
  const Text alphabet(u"=09:@AFGa\r\n\0", 12);
  forEachCombination(alphabet, 5, [](const Text& text) {
    ASSERT_EQ(quotedPrintableBytes(text), bytesPieceByPiece(text)) << testing::PrintToString(text);
  });
}

TEST(QuotedPrintable, givesTheBytesOfAPlainReaderForAllPairs) {
  for (char16_t first = 0; first <= 0x80; ++first) {
    for (char16_t second = 0; second <= 0x80; ++second) {
      const Text text = {u'x', u'=', first, second, u'y'};
      ASSERT_EQ(quotedPrintableBytes(text), bytesPieceByPiece(text))
          << testing::PrintToString(text);
    }
  }
}

TEST(QuotedPrintable, givesTheBytesOfAPlainReaderForRandomTexts) {
  std::mt19937_64 random(testSeed());
  const Text alphabet = u"=====000D0AC3A9 ab;:@\r\n";
  for (int round = 0; round < 20000; ++round) {
    const Text text = randomString(alphabet, random() % 60, random);
    ASSERT_EQ(quotedPrintableBytes(text), bytesPieceByPiece(text)) << testing::PrintToString(text);
  }
}

} // namespace
} // namespace cardwright
