#include "base/case.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/line_predicates.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>

namespace cardwright {
namespace {

using Position = std::optional<std::size_t>;
using Name = std::optional<Text>;

const Text kLoneSurrogate(1, char16_t{0xD83D});

TEST(FirstUnquotedColonIndex, skipsWhatStandsInQuotes) {
  EXPECT_EQ(VCardCleaner::firstUnquotedColonIndex(u"NOTE;X-A=\"a:b\":text"), Position(14));
  EXPECT_EQ(VCardCleaner::firstUnquotedColonIndex(u"NOTE;X-A=\"a:b"), std::nullopt);
  EXPECT_EQ(VCardCleaner::firstUnquotedColonIndex(u"A\\\":b\":c"), Position(6));
  EXPECT_EQ(VCardCleaner::firstUnquotedColonIndex(u":"), Position(0));
  EXPECT_EQ(VCardCleaner::firstUnquotedColonIndex(u"TEL"), std::nullopt);
  EXPECT_EQ(VCardCleaner::firstUnquotedColonIndex(u""), std::nullopt);
}

TEST(FirstUnquotedColonIndex, takesOnlySignsThatStandAlone) {
  EXPECT_EQ(VCardCleaner::firstUnquotedColonIndex(u"TEL:\u0301x:y"), Position(6));
  EXPECT_EQ(VCardCleaner::firstUnquotedColonIndex(u"A\"\u0301:b\"c"), Position(3));
  EXPECT_EQ(VCardCleaner::firstUnquotedColonIndex(u"\u0600:a:b"), Position(3));
  EXPECT_EQ(VCardCleaner::firstUnquotedColonIndex(u"\U0001F600e\u0301:x"), Position(4));
  EXPECT_EQ(VCardCleaner::firstUnquotedColonIndex(kLoneSurrogate + u":x"), Position(1));
}

TEST(PropertyNameUpper, dropsGroupAndParameters) {
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"item1.tel;type=cell:+1"), Name(u"TEL"));
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"x\\;y:z"), Name(u"X"));
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"x\\\\;y:z"), Name(u"X\\"));
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"x\\:z"), Name(u"X\\"));
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"toolonggroup1.TEL:1"), Name(u"TOOLONGGROUP1.TEL"));
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"a.b.tel:1"), Name(u"B.TEL"));
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"tel;a.b=c:1"), Name(u"TEL"));
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u":value"), Name(u""));
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u";a:value"), Name(u""));
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"TEL"), std::nullopt);
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"\"TEL:1"), std::nullopt);
}

TEST(PropertyNameUpper, mapsLettersBeyondAscii) {
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"straße:1"), Name(u"STRASSE"));
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"\u017Fort:1"), Name(u"SORT"));
  // The Kelvin sign is a letter of a label.
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"\u212A1.tel:1"), Name(u"TEL"));
}

TEST(PropertyNameUpper, takesOnlySignsThatStandAlone) {
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"TEL:\u0301x"), std::nullopt);
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"TEL;\u0301X:1"), Name(u"TEL;\u0301X"));
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"x\\\u0301;y:z"), Name(u"X\\\u0301"));
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"x\\;\u0301a;y:z"), Name(u"X\\;\u0301A"));
  EXPECT_EQ(VCardCleaner::propertyNameUpper(u"x\u0600\\;y:z"), Name(u"X\u0600\\"));
}

TEST(PropertyNameIn, viewsTheHeader) {
  const TextView header = u"item1.tel\\;type=cell";
  const TextView name = propertyNameIn(header);
  EXPECT_EQ(name, u"tel");
  EXPECT_EQ(name.data(), header.data() + 6);
  EXPECT_EQ(propertyNameIn(u""), u"");
}

TEST(FastContains, ignoresCaseInFull) {
  EXPECT_TRUE(VCardCleaner::fastContains(u"xTeLy", u"tel"));
  EXPECT_TRUE(VCardCleaner::fastContains(u"STRASSE", u"straße"));
  EXPECT_TRUE(VCardCleaner::fastContains(u"\uFB01x", u"FI"));
  EXPECT_TRUE(VCardCleaner::fastContains(u"\u017F\u212A", u"sk"));
  EXPECT_TRUE(VCardCleaner::fastContains(u"aabaaab", u"AAAB"));
  EXPECT_TRUE(VCardCleaner::fastContains(u"tel", u"TEL"));
  EXPECT_FALSE(VCardCleaner::fastContains(u"te", u"tel"));
  EXPECT_FALSE(VCardCleaner::fastContains(u"\u0131", u"i"));
  EXPECT_FALSE(VCardCleaner::fastContains(u"e\u0301", u"\u00E9"));
}

TEST(FastContains, takesCharactersWhole) {
  EXPECT_FALSE(VCardCleaner::fastContains(u"\uFB01x", u"ix"));
  EXPECT_FALSE(VCardCleaner::fastContains(u"a\uFB01", u"af"));
  // The first of two occurrences begins inside a character, the second does not.
  EXPECT_TRUE(VCardCleaner::fastContains(u"\u00DFss", u"SS"));
  EXPECT_TRUE(VCardCleaner::fastContains(u"\uFB00fia", u"fi"));
  EXPECT_FALSE(VCardCleaner::fastContains(u"\U0001F600", kLoneSurrogate));
}

TEST(FastContains, findsAnEmptyTextEverywhere) {
  EXPECT_TRUE(VCardCleaner::fastContains(u"abc", u""));
  EXPECT_TRUE(VCardCleaner::fastContains(u"", u""));
  EXPECT_FALSE(VCardCleaner::fastContains(u"", u"a"));
}

TEST(CountColonsIn, countsAllOfThem) {
  EXPECT_EQ(VCardCleaner::countColonsIn(u"a:\"b:c\":"), 3);
  EXPECT_EQ(VCardCleaner::countColonsIn(u":\u0301\uFF1A"), 1);
  EXPECT_EQ(VCardCleaner::countColonsIn(u""), 0);
}

TEST(TrimTrailingWhitespace, trimsTheEndOnly) {
  EXPECT_EQ(VCardCleaner::trimTrailingWhitespace(u"  a \t\u2028\u00A0\r\n"), u"  a");
  EXPECT_EQ(VCardCleaner::trimTrailingWhitespace(u"a\u0085\u000B\u3000"), u"a");
  EXPECT_EQ(VCardCleaner::trimTrailingWhitespace(u"a\uFEFF"), u"a\uFEFF");
  EXPECT_EQ(VCardCleaner::trimTrailingWhitespace(u"a\u200B"), u"a\u200B");
  EXPECT_EQ(VCardCleaner::trimTrailingWhitespace(u" \r\n\t"), u"");
  EXPECT_EQ(VCardCleaner::trimTrailingWhitespace(u""), u"");
}

TEST(TrimTrailingWhitespace, looksAtTheLastCodePointAndRemovesTheCharacter) {
  EXPECT_EQ(VCardCleaner::trimTrailingWhitespace(u"a\u0600 "), u"a");
  EXPECT_EQ(VCardCleaner::trimTrailingWhitespace(u"a \u0301"), u"a \u0301");
  EXPECT_EQ(VCardCleaner::trimTrailingWhitespace(u"a\u0600\n"), u"a\u0600");
}

TEST(StartsWithHeader, looksAtTheStartOnly) {
  EXPECT_FALSE(VCardCleaner::startsWithAllowedHeader(u"foo TEL:1"));
  EXPECT_TRUE(VCardCleaner::startsWithAllowedHeader(u"item1.tel;type=cell:1"));
  EXPECT_FALSE(VCardCleaner::startsWithAllowedHeader(u"IMPP:x"));
  EXPECT_FALSE(VCardCleaner::startsWithAllowedHeader(u"X-FOO:x"));
  EXPECT_FALSE(VCardCleaner::startsWithAllowedHeader(u""));
  EXPECT_FALSE(VCardCleaner::startsWithAnyHeader(u"foo TEL:1"));
  EXPECT_TRUE(VCardCleaner::startsWithAnyHeader(u"X-FOO:x"));
  EXPECT_TRUE(VCardCleaner::startsWithAnyHeader(u"\u017FOUND:x"));
  EXPECT_FALSE(VCardCleaner::startsWithAnyHeader(u"N;QUOTED-PRINTABLE:x"));
  EXPECT_FALSE(VCardCleaner::startsWithAnyHeader(u"TEL;x"));
  EXPECT_FALSE(VCardCleaner::startsWithAnyHeader(u":TEL:1"));
  EXPECT_FALSE(VCardCleaner::startsWithAnyHeader(u"abcdefghijk.TEL:1"));
  EXPECT_FALSE(VCardCleaner::startsWithAnyHeader(u";TEL:1"));
}

TEST(LineUsesQuotedPrintable, readsTheHeader) {
  EXPECT_TRUE(VCardCleaner::lineUsesQuotedPrintable(u"NOTE;encoding=quoted-printable:x"));
  EXPECT_TRUE(VCardCleaner::lineUsesQuotedPrintable(u"X-ENCODING=QUOTED-PRINTABLE-ISH:x"));
  EXPECT_TRUE(VCardCleaner::lineUsesQuotedPrintable(u"NOTE;ENCODING=QUOTED-PRINTABLE\u0301:x"));
  EXPECT_TRUE(VCardCleaner::lineUsesQuotedPrintable(u"NOTE;encod\u0131ng=quoted-printable:x"));
  EXPECT_TRUE(VCardCleaner::lineUsesQuotedPrintable(u"é;encoding=quoted-printable:x"));
  EXPECT_FALSE(VCardCleaner::lineUsesQuotedPrintable(u"NOTE;QUOTED-PRINTABLE:x"));
  EXPECT_FALSE(VCardCleaner::lineUsesQuotedPrintable(u"NOTE:ENCODING=QUOTED-PRINTABLE"));
  EXPECT_FALSE(VCardCleaner::lineUsesQuotedPrintable(u"NOTE;ENCODING=QUOTED-PRINTABLE"));
  EXPECT_FALSE(VCardCleaner::lineUsesQuotedPrintable(u"NOTE;ENCODING=QUOTED-PRINTABL\u00C9:x"));
  EXPECT_FALSE(VCardCleaner::lineUsesQuotedPrintable(u""));
}

TEST(DeclaresQuotedPrintable, needsNoMoreUnitsThanTheWordsHave) {
  // What lets short headers pass unread: no letter's upper case holds two letters of these words.
  const TextView words = u"ENCODING=QUOTED-PRINTABLE";
  for (char32_t codePoint = 0x80; codePoint < 0x10000; ++codePoint) {
    const Text upper = upperCased(Text(1, static_cast<char16_t>(codePoint)));
    if (upper.size() > 1) {
      ASSERT_EQ(words.find(upper), TextView::npos) << static_cast<unsigned>(codePoint);
    }
  }
}

TEST(LineHasQuotedPrintableSoftBreak, looksBehindBlanks) {
  EXPECT_TRUE(VCardCleaner::lineHasQuotedPrintableSoftBreak(u"abc= \t"));
  EXPECT_TRUE(VCardCleaner::lineHasQuotedPrintableSoftBreak(u"="));
  EXPECT_FALSE(VCardCleaner::lineHasQuotedPrintableSoftBreak(u"abc=x"));
  EXPECT_FALSE(VCardCleaner::lineHasQuotedPrintableSoftBreak(u""));
  EXPECT_FALSE(VCardCleaner::lineHasQuotedPrintableSoftBreak(u" \t"));
  EXPECT_FALSE(VCardCleaner::lineHasQuotedPrintableSoftBreak(u"abc=\u00A0"));
  EXPECT_FALSE(VCardCleaner::lineHasQuotedPrintableSoftBreak(u"abc=\u0301"));
  EXPECT_FALSE(VCardCleaner::lineHasQuotedPrintableSoftBreak(u"abc= \u0301"));
  EXPECT_FALSE(VCardCleaner::lineHasQuotedPrintableSoftBreak(u"abc=\u0600 "));
  EXPECT_FALSE(VCardCleaner::lineHasQuotedPrintableSoftBreak(u"abc\u0600="));
}

TEST(RemoveQuotedPrintableSoftBreakSuffixFrom, removesBlanksAndOneSign) {
  EXPECT_EQ(VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(u"abc=  "), u"abc");
  EXPECT_EQ(VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(u"abc  "), u"abc");
  EXPECT_EQ(VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(u"a=="), u"a=");
  EXPECT_EQ(VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(u"a =\t"), u"a ");
  EXPECT_EQ(VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(u" "), u"");
  EXPECT_EQ(VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(u""), u"");
  EXPECT_EQ(VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(u"abc= \u0301"), u"abc= \u0301");
  EXPECT_EQ(VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(u"a\u0600="), u"a\u0600=");
  EXPECT_EQ(VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(u"a=\n"), u"a=\n");
}

TEST(LineLooksLikeStandaloneUriContinuation, knowsBareUris) {
  for (const TextView line :
       {u"  http://example.com/ ", u"mailto:someone", u"sms:1", u"URN:x", u"facetime-audio:a",
        u"Sips:a", u"a+b.c-d:x://y", u"http:x ://", u"http\u2028://x", u"http://\u0301x"}) {
    EXPECT_TRUE(VCardCleaner::lineLooksLikeStandaloneUriContinuation(line))
        << testing::PrintToString(line);
  }
  for (const TextView line :
       {u"URL:http://x/", u"X-URL:http://x/", u"vnd-a://b", u"tel:1", u"TEL://1", u"plain text",
        u"", u"  ", u"sip:", u"sip: ", u"sms:\u0301a", u"1a://b", u"a_b://c", u"://c", u"é://c",
        u"http:x", u"fax:1", u"urn\n:x", u"\u212Aa://b"}) {
    EXPECT_FALSE(VCardCleaner::lineLooksLikeStandaloneUriContinuation(line))
        << testing::PrintToString(line);
  }
}

TEST(IsPlausiblePropertyHeader, readsTheName) {
  for (const TextView line :
       {u"X-CUSTOM;TYPE=a:b", u"item2.URL:http://x/", u"a:b", u"é:x", u"cafe\u0301:x",
        u"A\u00BD\u2167\u0663:x", u"any group.TEL:1", u"MYURI:http://x", u"x.myurl:tel:1",
        u"TEL:tel:1", u"tel:1", u"A;http=b:c", u"straße:x", u"\u212A:x"}) {
    EXPECT_TRUE(VCardCleaner::isPlausiblePropertyHeader(line)) << testing::PrintToString(line);
  }
  for (const TextView line :
       {u"http://x/", u"1TEL:2",      u":x",          u"MY_PROP:x", u"",
        u"TEL",       u";a:x",        u"a.:x",        u".:x",       u"-A:b",
        u"a b:c",     u"a.b.c:x",     u"mailto:x",    u"MailTo:x",  u"A;b=\"://\":c",
        u"\u2167A:x", u"a-\u0301b:x", u"a.\u0301b:x", u"TE\"L:1",   u"\"a\":b"}) {
    EXPECT_FALSE(VCardCleaner::isPlausiblePropertyHeader(line)) << testing::PrintToString(line);
  }
  // A group label goes, whatever it looks like, but only the first.
  EXPECT_FALSE(VCardCleaner::isPlausiblePropertyHeader(u"..a;b:c"));
  EXPECT_TRUE(VCardCleaner::isPlausiblePropertyHeader(u".a;b:c"));
}

TEST(IsPlausiblePropertyHeader, distrustsNamesBeforeUris) {
  EXPECT_TRUE(VCardCleaner::isPlausiblePropertyHeader(u"geo:1"));
  EXPECT_FALSE(VCardCleaner::isPlausiblePropertyHeader(u"X-FOO:x://"));
  EXPECT_TRUE(VCardCleaner::isPlausiblePropertyHeader(u"X-FOO:mailto:a"));
  EXPECT_FALSE(VCardCleaner::isPlausiblePropertyHeader(u"Xuri\u0301:ftp://x"));
  EXPECT_TRUE(VCardCleaner::isPlausiblePropertyHeader(u"XUR\u0131:ftp://x"));
}

} // namespace
} // namespace cardwright
