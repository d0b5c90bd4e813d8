#include "cardwright/text_scanner.h"
#include "cardwright/vcard_utils.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>

namespace cardwright {
namespace {

TEST(CharacterSets, holdWhatTheyAreNamedAfter) {
  EXPECT_TRUE(VCardUtils::lineTerminatorCharacterSet().contains(u'\r'));
  EXPECT_TRUE(VCardUtils::lineTerminatorCharacterSet().contains(u'\n'));
  for (const char16_t unit : Text(u"\v\f\u0085\u2028\u2029")) {
    EXPECT_FALSE(VCardUtils::lineTerminatorCharacterSet().contains(unit));
    EXPECT_FALSE(VCardUtils::headerWhitespaceCharacterSet().contains(unit));
    EXPECT_FALSE(VCardUtils::spaceAndTabCharacterSet().contains(unit));
  }
  for (const char16_t unit : Text(u" \t\u00A0\u1680\u2000\u200A\u202F\u205F\u3000")) {
    EXPECT_TRUE(VCardUtils::headerWhitespaceCharacterSet().contains(unit));
    EXPECT_EQ(VCardUtils::spaceAndTabCharacterSet().contains(unit), unit == u' ' || unit == u'\t');
  }
  // A space separator until Unicode 6.3.
  EXPECT_FALSE(VCardUtils::headerWhitespaceCharacterSet().contains(u'\u180E'));
}

TEST(RecoverableNames, areFiftyInOrderAndNoExtensions) {
  const auto names = VCardUtils::recoverableStandalonePropertyNames();
  EXPECT_EQ(names.size(), 50U);
  EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
  for (const TextView name : names) {
    EXPECT_FALSE(name.starts_with(u"X-"));
  }
}

TEST(AddressBookServerLine, beginsWithThePrefixBehindGroups) {
  const auto isOne = [](std::optional<TextView> line) {
    return VCardUtils::lineIsAddressBookServerProperty(line);
  };
  EXPECT_TRUE(isOne(u"X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1"));
  EXPECT_TRUE(isOne(u"x-addressbookserver-:"));
  EXPECT_TRUE(isOne(u" \r\n\u2029item1.X-AddressBookServer-Kind;A=b:group"));
  EXPECT_TRUE(isOne(u"a.b.X-ADDRESSBOOKSERVER-KIND:group"));
  EXPECT_TRUE(isOne(u"X-ADDRE\u017FSBOOKSERVER-KIND:group"));
  EXPECT_FALSE(isOne(std::nullopt));
  EXPECT_FALSE(isOne(u""));
  EXPECT_FALSE(isOne(u" \t "));
  EXPECT_FALSE(isOne(u"X-ADDRESSBOOKSERVER-MEMBER"));
  EXPECT_FALSE(isOne(u"X-ADDRESSBOOKSERVER-KIND;A=b.c:group"));
  EXPECT_FALSE(isOne(u"NOTE:X-ADDRESSBOOKSERVER-MEMBER:1"));
}

std::optional<std::size_t> serverPropertyAt(const Text& text, std::size_t location = 0) {
  std::size_t start = 0;
  const TextScanner scanner{TextView(text)};
  if (!VCardUtils::lineBeginsWithAddressBookServerPropertyAtLocation(scanner, location, &start)) {
    return std::nullopt;
  }
  return start;
}

TEST(AddressBookServerPropertyAhead, beginsBehindBlanks) {
  EXPECT_EQ(serverPropertyAt(u"X-ADDRESSBOOKSERVER-M:1"), 0U);
  EXPECT_EQ(serverPropertyAt(u" \t x-addressbookserver-m:1"), 3U);
  EXPECT_EQ(serverPropertyAt(u"A:1\r\n  X-ADDRESSBOOKSERVER-M:1", 5), 7U);
  EXPECT_EQ(serverPropertyAt(u"item-1.X-ADDRESSBOOKSERVER-M:1"), 0U);
  EXPECT_EQ(serverPropertyAt(u"\u00A0X-ADDRESSBOOKSERVER-M:1"), std::nullopt);
  EXPECT_EQ(serverPropertyAt(u"item_1.X-ADDRESSBOOKSERVER-M:1"), std::nullopt);
  EXPECT_EQ(serverPropertyAt(u"a.b.X-ADDRESSBOOKSERVER-M:1"), std::nullopt);
  EXPECT_EQ(serverPropertyAt(u".X-ADDRESSBOOKSERVER-M:1"), std::nullopt);
  EXPECT_EQ(serverPropertyAt(u"X-ADDRESSBOOKSERVER-M"), std::nullopt);
  EXPECT_EQ(serverPropertyAt(u"item1."), std::nullopt);
  EXPECT_EQ(serverPropertyAt(u"   "), std::nullopt);
  EXPECT_EQ(serverPropertyAt(u"X-ADDRESSBOOKSERVER-M:1", 99), std::nullopt);
}

TEST(AddressBookServerPropertyAhead, hasItsColonWithin128CharactersOfTheName) {
  const Text name = u"X-ADDRESSBOOKSERVER-";
  const Text exactly = name + Text(127 - name.size(), u'A') + u":";
  EXPECT_EQ(serverPropertyAt(exactly), 0U);
  EXPECT_EQ(serverPropertyAt(u"g." + exactly), 0U);
  EXPECT_EQ(serverPropertyAt(name + Text(128 - name.size(), u'A') + u":"), std::nullopt);
  // The colon may stand on the next line.
  EXPECT_EQ(serverPropertyAt(name + u"M\r\nTEL:1"), 0U);
}

TEST(AddressBookServerPropertyAhead, isTestedWithoutAPlaceForTheStart) {
  const TextScanner scanner(TextView(u" X-ADDRESSBOOKSERVER-M:1"));
  EXPECT_TRUE(VCardUtils::lineBeginsWithAddressBookServerPropertyAtLocation(scanner, 0));
}

TEST(Boundary, isAFrameLineABlankLineOrTheEnd) {
  const auto isBoundary = [](TextView text, std::size_t location = 0) {
    return VCardUtils::nextLineIsVCardBoundaryAtLocation(TextScanner(text), location,
                                                         VCardUtils::lineTerminatorCharacterSet());
  };
  for (const TextView text :
       {TextView(u""), TextView(u" \t"), TextView(u"\r\nA:1"), TextView(u" \t\nA:1"),
        TextView(u"BEGIN:VCARD"), TextView(u"\t end:vcard \t\r\nA:1"), TextView(u"End:VCard\r")}) {
    EXPECT_TRUE(isBoundary(text)) << ::testing::PrintToString(Text(text));
  }
  for (const TextView text :
       {TextView(u"A:1"), TextView(u"BEGIN:VCARDS"), TextView(u"END: VCARD"),
        TextView(u"END:VCARD x"), TextView(u"\u00A0\r\n"), TextView(u"END:VCARD\u00A0")}) {
    EXPECT_FALSE(isBoundary(text)) << ::testing::PrintToString(Text(text));
  }
  EXPECT_TRUE(isBoundary(u"A:1", 3));
  EXPECT_TRUE(isBoundary(u"A:1", 4));
}

TEST(Boundary, takesItsTerminatorsFromTheCaller) {
  EXPECT_TRUE(VCardUtils::nextLineIsVCardBoundaryAtLocation(TextScanner(TextView(u"END:VCARD|x")),
                                                            0, CharacterSet::fromCharacters(u"|")));
}

TEST(RecoverableProperty, isALineThatNamesOneOfTheStandardProperties) {
  const auto isRecoverable = [](TextView text, std::size_t location = 0) {
    return VCardUtils::nextLineLooksLikeRecoverableStandalonePropertyAtLocation(
        TextScanner(text), location, VCardUtils::lineTerminatorCharacterSet(),
        VCardUtils::headerWhitespaceCharacterSet());
  };
  for (const TextView text :
       {TextView(u"TEL:1"), TextView(u" \ttel;TYPE=x:1"), TextView(u"item1.EMAIL:x"),
        TextView(u"a b.c.N:x"), TextView(u"\u00A0TEL\u3000:1"), TextView(u"TEL;a.b:1"),
        TextView(u"org-directory:\r\n"), TextView(u"a:. TEL:1").substr(2)}) {
    EXPECT_TRUE(isRecoverable(text)) << ::testing::PrintToString(Text(text));
  }
  for (const TextView text :
       {TextView(u""), TextView(u"  "), TextView(u"\r\nTEL:1"), TextView(u"TEL"),
        TextView(u":TEL:1"), TextView(u"X-TEL:1"), TextView(u"TELE:1"), TextView(u"TEL."),
        TextView(u"TEL.:1"), TextView(u";TEL:1"), TextView(u"TEL\r\n:1"), TextView(u" \u00A0:1"),
        TextView(u"TEL x:1")}) {
    EXPECT_FALSE(isRecoverable(text)) << ::testing::PrintToString(Text(text));
  }
  EXPECT_FALSE(isRecoverable(u"TEL:1", 5));
  EXPECT_FALSE(isRecoverable(u"TEL:1", 9));
  EXPECT_TRUE(isRecoverable(u"A:1\r\nTEL:1", 5));
}

TEST(RecoverableProperty, isTrimmedOfTheCallersWhitespace) {
  EXPECT_TRUE(VCardUtils::nextLineLooksLikeRecoverableStandalonePropertyAtLocation(
      TextScanner(TextView(u"__TEL_:1|x")), 0, CharacterSet::fromCharacters(u"|"),
      CharacterSet::fromCharacters(u"_")));
}

TEST(SoftBreakSuffix, isBlanksAndOneEqualsSign) {
  const auto trimmed = [](Text line) {
    VCardUtils::trimQuotedPrintableSoftBreakSuffixFromLine(line,
                                                           VCardUtils::spaceAndTabCharacterSet());
    return line;
  };
  EXPECT_EQ(trimmed(u"a="), u"a");
  EXPECT_EQ(trimmed(u"a= \t "), u"a");
  EXPECT_EQ(trimmed(u"a=="), u"a=");
  EXPECT_EQ(trimmed(u"a \t"), u"a");
  EXPECT_EQ(trimmed(u"a =x"), u"a =x");
  EXPECT_EQ(trimmed(u" = "), u" ");
  EXPECT_EQ(trimmed(u"= ="), u"= ");
  EXPECT_EQ(trimmed(u"  "), u"");
  EXPECT_EQ(trimmed(u""), u"");
}

} // namespace
} // namespace cardwright
