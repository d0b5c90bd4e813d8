#include "cardwright/vcard.h"
#include "reader/numeric_entities.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>

namespace cardwright {
namespace {

TEST(NumericEntities, standForTheirCharacters) {
  struct {
    TextView text;
    TextView decoded;
  } const cases[] = {
      {u"Caf&#233;", u"Caf\u00E9"},
      {u"Caf&#xE9;&#XE9;&#xe9;", u"Caf\u00E9\u00E9\u00E9"},
      {u"&#x1F600;", u"\U0001F600"},
      {u"&#x10000;&#x10FFFF;&#65536;", u"\U00010000\U0010FFFF\U00010000"},
      {u"a&#59;b&#x3A;c", u"a;b:c"},
      {u"a&#13;&#10;b", u"a\r\nb"},
      {u"&#000065;&#x00000000000000000000000041;", u"AA"},
      {u"&&#65;&", u"&A&"},
      {u"&#&#65;", u"&#A"},
      {u"&#x&#65;", u"&#xA"},
      {u"&#1&#65;", u"&#1A"},
      {u"&#38;#65;", u"&#65;"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(VCard::normalizedStringByDecodingNumericEntitiesFromString(c.text), c.decoded);
  }
}

TEST(NumericEntities, standForLoneSurrogatesToo) {
  EXPECT_EQ(VCard::normalizedStringByDecodingNumericEntitiesFromString(u"&#xD800;&#57343;"),
            (Text{char16_t{0xD800}, char16_t{0xDFFF}}));
}

TEST(NumericEntities, areLeftWhereTheyStandForNothing) {
  for (const TextView text :
       {TextView(u""), TextView(u"no reference"), TextView(u"&#0;"), TextView(u"&#1114112;"),
        TextView(u"&#x110000;"), TextView(u"&#99999999999999999999999999;"),
        TextView(u"&#xFFFFFFFFFFFFFFFFFF;"), TextView(u"&#;"), TextView(u"&#x;"), TextView(u"&#65"),
        TextView(u"&# 65;"), TextView(u"&#6 5;"), TextView(u"&#-65;"), TextView(u"&#A;"),
        TextView(u"&#xG;"), TextView(u"& #65;"), TextView(u"&amp;"), TextView(u"&#\uFF16;"),
        TextView(u"&")}) {
    EXPECT_EQ(VCard::normalizedStringByDecodingNumericEntitiesFromString(text), text);
    EXPECT_FALSE(decodedNumericEntities(text)) << ::testing::PrintToString(Text(text));
  }
  EXPECT_EQ(VCard::normalizedStringByDecodingNumericEntitiesFromString(std::nullopt), std::nullopt);
}

TEST(NumericEntities, areDecodedBesideThoseThatAreLeft) {
  EXPECT_EQ(VCard::normalizedStringByDecodingNumericEntitiesFromString(u"&#0;&#65;&#x110000;&#66;"),
            u"&#0;A&#x110000;B");
}

TEST(Numbers, areReadWholeOrNotAtAll) {
  constexpr std::uint64_t kLargest = std::numeric_limits<std::uint64_t>::max();
  struct {
    TextView digits;
    int radix;
    std::optional<std::uint64_t> number;
  } const cases[] = {
      {u"0", 10, 0U},
      {u"00233", 10, 233U},
      {u"e9", 16, 0xE9U},
      {u"E9", 16, 0xE9U},
      {u"ffffffffffffffff", 16, kLargest},
      {u"18446744073709551615", 10, kLargest},
      {u"18446744073709551616", 10, kLargest},
      {u"99999999999999999999999", 10, kLargest},
      {u"10000000000000000", 16, kLargest},
      {u"99999999999999999999999x", 10, std::nullopt},
      {u"", 10, std::nullopt},
      {u"", 16, std::nullopt},
      {u"E9", 10, std::nullopt},
      {u"G", 16, std::nullopt},
      {u"12 ", 10, std::nullopt},
      {u" 12", 10, std::nullopt},
      {u"+12", 10, std::nullopt},
      {u"-12", 10, std::nullopt},
      {u"0x12", 16, std::nullopt},
      {u"12", 8, std::nullopt},
      {u"12", 0, std::nullopt},
      {u"12", -10, std::nullopt},
      {u"\uFF11", 10, std::nullopt},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(VCard::numberFromString(c.digits, c.radix), c.number)
        << ::testing::PrintToString(Text(c.digits)) << " " << c.radix;
  }
}

TEST(CodePoints, becomeOneOrTwoUnits) {
  EXPECT_EQ(VCard::stringFromUnicodeScalar(0), std::nullopt);
  EXPECT_EQ(VCard::stringFromUnicodeScalar(1), u"\u0001");
  EXPECT_EQ(VCard::stringFromUnicodeScalar(0xFFFF), u"\uFFFF");
  EXPECT_EQ(VCard::stringFromUnicodeScalar(0x10000), u"\U00010000");
  EXPECT_EQ(VCard::stringFromUnicodeScalar(0x10FFFF), u"\U0010FFFF");
  EXPECT_EQ(VCard::stringFromUnicodeScalar(0x110000), std::nullopt);
  EXPECT_EQ(VCard::stringFromUnicodeScalar(std::numeric_limits<std::uint64_t>::max()),
            std::nullopt);
  EXPECT_EQ(VCard::stringFromUnicodeScalar(0xDC00), Text(1, char16_t{0xDC00}));
}

} // namespace
} // namespace cardwright
