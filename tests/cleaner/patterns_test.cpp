#include "cardwright/vcard_cleaner.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace cardwright {
namespace {

/// The matched texts, each followed by its capture in brackets where there is one.
std::vector<Text> matchedTexts(const CleanerPattern& pattern, TextView text) {
  std::vector<Text> result;
  for (const CleanerPattern::Match& match : pattern.matches(text)) {
    Text matched(text.substr(match.range.location, match.range.length));
    if (match.capture) {
      matched += u'[';
      matched += text.substr(match.capture->location, match.capture->length);
      matched += u']';
    }
    result.push_back(matched);
  }
  return result;
}

using Texts = std::vector<Text>;

Texts allowed(TextView text) {
  return matchedTexts(VCardCleaner::allowedHeaderRegex(), text);
}

Texts anyUpper(TextView text) {
  return matchedTexts(VCardCleaner::anyUpperHeaderRegex(), text);
}

TEST(PatternTexts, areWhatTheListsMakeOfThem) {
  EXPECT_EQ(VCardCleaner::groupPrefixRegex().pattern(), u"(?i)^(?>[A-Za-z][A-Za-z0-9-]{0,9})\\.");
  EXPECT_EQ(VCardCleaner::danglingFragmentRegex().pattern(), u"((?:X-|VND-)[A-Z0-9-]+)$");
  EXPECT_TRUE(VCardCleaner::danglingFragmentRegex().ignoresCase());
  EXPECT_EQ(VCardCleaner::trailingExtendedHeaderFragmentRegex().pattern(),
            u"(?i)((?:X-|VND-)[A-Z0-9-]+(?:;[^:\\r\\n]*)?\\s*)$");
  ASSERT_EQ(VCardCleaner::allowlistPatternRegexes().size(), 1U);
  EXPECT_EQ(VCardCleaner::allowlistPatternRegexes()[0].pattern(),
            u"^VND-[0-9]+-SENSITIVE-CONTENT-CONFIG$");
  EXPECT_TRUE(VCardCleaner::allowlistPatternRegexes()[0].ignoresCase());
  EXPECT_EQ(
      VCardCleaner::anyUpperHeaderRegex().pattern(),
      u"(?i)(?:(?>[A-Za-z][A-Za-z0-9-]{0,9})\\.)?((?:ADR|ANNIVERSARY|BDAY|CALADRURI|CALURI|"
      u"CATEGORIES|CLASS|EMAIL|FBURL|FN|GEO|KEY|LOGO|"
      u"N(?=(?:\\\\?;[A-Za-z0-9-]+=(?:[^;:\"\\r\\n]|\"[^\"\\r\\n]*\")*)*:)|"
      u"NICKNAME|NOTE|ORG|PHOTO|PRODID|REV|ROLE|SORT-STRING|SOUND|SOURCE|TEL|TITLE|TZ|UID|URL|"
      u"VERSION)|(?:X-|VND-)(?:(?!X-|VND-)[A-Z0-9-])+)"
      u"(?:(?:\\\\?;)(?:[^:\"\\r\\n]|\"[^\"\\r\\n]*\")*?)?:");
  EXPECT_FALSE(VCardCleaner::anyUpperHeaderRegex().ignoresCase());
}

TEST(PatternTexts, listAllowedNamesFromTheLongestToTheShortest) {
  const TextView pattern = VCardCleaner::allowedHeaderRegex().pattern();
  EXPECT_TRUE(pattern.starts_with(
      u"(?i)(?:(?>[A-Za-z][A-Za-z0-9-]{0,9})\\.)?(?:X-ADDRESSBOOKSERVER-PHONEME-DATA|"
      u"X-APPLE-SUBADMINISTRATIVEAREA|X-SHARED-PHOTO-DISPLAY-PREF|X-ADDRESSBOOKSERVER-MEMBER|"));
  EXPECT_TRUE(pattern.ends_with(
      u"|FN|TZ|N(?=(?:\\\\?;[A-Za-z0-9-]+=(?:[^;:\"\\r\\n]|\"[^\"\\r\\n]*\")*)*:)|"
      u"(?:VND-[0-9]+-SENSITIVE-CONTENT-CONFIG))"
      u"(?:(?:\\\\?;)(?:[^:\"\\r\\n]|\"[^\"\\r\\n]*\")*?)?:"));
  EXPECT_FALSE(VCardCleaner::allowedHeaderRegex().ignoresCase());
}

TEST(HeaderPatterns, takeTheNameNOnlyWithParametersOrAColon) {
  EXPECT_EQ(allowed(u"N;CHARSET=UTF-8:Doe;John"), Texts{u"N;CHARSET=UTF-8:"});
  EXPECT_EQ(anyUpper(u"N:x"), Texts{u"N:[N]"});
  EXPECT_EQ(anyUpper(u"N;LANGUAGE=de:x"), Texts{u"N;LANGUAGE=de:[N]"});
  EXPECT_EQ(anyUpper(u"N\\;LANGUAGE=\"a;b:c\"\\;X=:x"), Texts{u"N\\;LANGUAGE=\"a;b:c\"\\;X=:[N]"});
  for (const TextView bare : {u"N;QUOTED-PRINTABLE:x", u"N;:x", u"N;=a:x", u"N;A=b;C:x", u"N;A=b",
                              u"N;A=\"b:x", u"N;A=b\r\n:x", u"N\\:x", u"NX:y"}) {
    EXPECT_EQ(allowed(bare), Texts{}) << testing::PrintToString(bare);
    EXPECT_EQ(anyUpper(bare), Texts{}) << testing::PrintToString(bare);
  }
}

TEST(HeaderPatterns, takeTheLongestNameThatEndsThere) {
  EXPECT_EQ(allowed(u"NOTE:x"), Texts{u"NOTE:"});
  EXPECT_EQ(anyUpper(u"FBURL:x"), Texts{u"FBURL:[FBURL]"});
  EXPECT_EQ(anyUpper(u"MYURL:x"), Texts{u"URL:[URL]"});
  EXPECT_EQ(anyUpper(u"FN;N:x"), Texts{u"FN;N:[FN]"});
}

TEST(HeaderPatterns, takeALabelOfTenCharacters) {
  EXPECT_EQ(allowed(u"item12.TEL;type=CELL:+1"), Texts{u"item12.TEL;type=CELL:"});
  EXPECT_EQ(anyUpper(u"item12.TEL;type=CELL:+1"), Texts{u"item12.TEL;type=CELL:[TEL]"});
  EXPECT_EQ(anyUpper(u"abcdefghij.TEL:1"), Texts{u"abcdefghij.TEL:[TEL]"});
  EXPECT_EQ(anyUpper(u"abcdefghijk.TEL:1"), Texts{u"bcdefghijk.TEL:[TEL]"});
  EXPECT_EQ(anyUpper(u"1-2.TEL:1"), Texts{u"TEL:[TEL]"});
  EXPECT_EQ(anyUpper(u"a.b.TEL:1"), Texts{u"b.TEL:[TEL]"});
}

TEST(HeaderPatterns, takeNumberedNamesInAnyCase) {
  EXPECT_EQ(allowed(u"vnd-7-sensitive-content-config:1"),
            Texts{u"vnd-7-sensitive-content-config:"});
  EXPECT_EQ(allowed(u"VND-X-SENSITIVE-CONTENT-CONFIG:1"), Texts{});
  EXPECT_EQ(allowed(u"VND-FOO:1"), Texts{});
  EXPECT_EQ(anyUpper(u"VND-FOO:1"), Texts{u"VND-FOO:[VND-FOO]"});
}

TEST(HeaderPatterns, captureTheName) {
  EXPECT_EQ(anyUpper(u"X-CUSTOM-THING;TYPE=a:b"), Texts{u"X-CUSTOM-THING;TYPE=a:[X-CUSTOM-THING]"});
  EXPECT_EQ(anyUpper(u"tel:123"), Texts{u"tel:[tel]"});
}

TEST(HeaderPatterns, startExtensionsAtTheirLastPrefix) {
  EXPECT_EQ(anyUpper(u"X-FOOX-BAR:1"), Texts{u"X-BAR:[X-BAR]"});
  EXPECT_EQ(anyUpper(u"X-VND-1:1"), Texts{u"VND-1:[VND-1]"});
  EXPECT_EQ(anyUpper(u"X-FOOX-:1"), Texts{});
  EXPECT_EQ(anyUpper(u"X-:1"), Texts{});
  EXPECT_EQ(anyUpper(u"X--:1"), Texts{u"X--:[X--]"});
}

TEST(HeaderPatterns, goThroughQuotesButNotThroughLineBreaks) {
  EXPECT_EQ(anyUpper(u"TEL;X=\"a:b\":c"), Texts{u"TEL;X=\"a:b\":[TEL]"});
  EXPECT_EQ(anyUpper(u"TEL;X=\"a:b"), Texts{});
  EXPECT_EQ(anyUpper(u"TEL;X\n:b"), Texts{});
  EXPECT_EQ(anyUpper(u"TEL;X\u2028:b"), Texts{u"TEL;X\u2028:[TEL]"});
  // The same quotes, seen from between them.
  EXPECT_EQ(anyUpper(u"TEL;\"TEL;\"TEL;:\":"), (Texts{u"TEL;\"TEL;\"TEL;:[TEL]"}));
  EXPECT_EQ(anyUpper(u"TEL;\"X-A;:"), (Texts{u"X-A;:[X-A]"}));
}

TEST(HeaderPatterns, findSeveral) {
  EXPECT_EQ(anyUpper(u"TEL:+15550100EMAIL:x"), (Texts{u"TEL:[TEL]", u"EMAIL:[EMAIL]"}));
  EXPECT_EQ(allowed(u"TEL;a:item1.ORG:X-FOO:b X-KIND:"),
            (Texts{u"TEL;a:", u"item1.ORG:", u"X-KIND:"}));
}

TEST(HeaderPatterns, foldLettersBeyondAscii) {
  EXPECT_EQ(anyUpper(u"\u212AEY:1"), Texts{u"\u212AEY:[\u212AEY]"});
  EXPECT_EQ(anyUpper(u"CLA\u00DF:1"), Texts{u"CLA\u00DF:[CLA\u00DF]"});
  EXPECT_EQ(anyUpper(u"X-A\u017F:1"), Texts{u"X-A\u017F:[X-A\u017F]"});
  EXPECT_EQ(anyUpper(u"X-A\u00DF:1"), Texts{});
  EXPECT_EQ(allowed(u"X-EVOLUTION-ASSI\uFB06ANT:1"), Texts{u"X-EVOLUTION-ASSI\uFB06ANT:"});
  // Half a character is none.
  EXPECT_EQ(allowed(u"\uFB06EL:1"), Texts{});
}

TEST(GroupPrefixRegex, matchesOnlyAtTheStart) {
  const CleanerPattern& pattern = VCardCleaner::groupPrefixRegex();
  EXPECT_EQ(matchedTexts(pattern, u"item1.TEL"), Texts{u"item1."});
  EXPECT_EQ(matchedTexts(pattern, u"a.b.TEL"), Texts{u"a."});
  EXPECT_EQ(matchedTexts(pattern, u"abcdefghij.TEL"), Texts{u"abcdefghij."});
  EXPECT_EQ(matchedTexts(pattern, u"abcdefghijk.TEL"), Texts{});
  EXPECT_EQ(matchedTexts(pattern, u"1a.TEL"), Texts{});
  EXPECT_EQ(matchedTexts(pattern, u".TEL"), Texts{});
  EXPECT_EQ(matchedTexts(pattern, u"a"), Texts{});
  EXPECT_EQ(matchedTexts(pattern, u""), Texts{});
}

TEST(DanglingFragmentRegex, findsAnExtensionAtTheEnd) {
  const CleanerPattern& pattern = VCardCleaner::danglingFragmentRegex();
  EXPECT_EQ(matchedTexts(pattern, u"hello X-ABLA"), Texts{u"X-ABLA[X-ABLA]"});
  EXPECT_EQ(matchedTexts(pattern, u"helloX-AX-B"), Texts{u"X-AX-B[X-AX-B]"});
  EXPECT_EQ(matchedTexts(pattern, u"hello vnd-1\u2029"), Texts{u"vnd-1[vnd-1]"});
  EXPECT_EQ(matchedTexts(pattern, u"X-AX-"), Texts{u"X-AX-[X-AX-]"});
  EXPECT_EQ(matchedTexts(pattern, u"hello X-"), Texts{});
  EXPECT_EQ(matchedTexts(pattern, u"hello X-A "), Texts{});
  EXPECT_EQ(matchedTexts(pattern, u"hello X-A\n\n"), Texts{});
}

TEST(TrailingExtendedHeaderFragmentRegex, takesParametersAndBlanksToo) {
  const CleanerPattern& pattern = VCardCleaner::trailingExtendedHeaderFragmentRegex();
  EXPECT_EQ(matchedTexts(pattern, u"aX-FOO;TYPE=a  "), Texts{u"X-FOO;TYPE=a  [X-FOO;TYPE=a  ]"});
  EXPECT_EQ(matchedTexts(pattern, u"Main StreetX-ABLABEL"), Texts{u"X-ABLABEL[X-ABLABEL]"});
  EXPECT_EQ(matchedTexts(pattern, u"X-A;b c;d\r\n \n"),
            Texts{u"X-A;b c;d\r\n \n[X-A;b c;d\r\n \n]"});
  EXPECT_EQ(matchedTexts(pattern, u"X-A;b:c"), Texts{});
  EXPECT_EQ(matchedTexts(pattern, u"X-A;b\nc"), Texts{});
  EXPECT_EQ(matchedTexts(pattern, u"X-A b"), Texts{});
  EXPECT_EQ(matchedTexts(pattern, u"X-A:X-B"), Texts{u"X-B[X-B]"});
}

} // namespace
} // namespace cardwright
