#include "base/case.h"
#include "base/whitespace.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/vocabulary.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace cardwright {
namespace {

std::set<Text> setOf(std::span<const TextView> names) {
  return {names.begin(), names.end()};
}

std::vector<Text> without(const std::set<Text>& names, const std::set<Text>& others) {
  std::vector<Text> rest;
  std::set_difference(names.begin(), names.end(), others.begin(), others.end(),
                      std::back_inserter(rest));
  return rest;
}

TEST(Vocabulary, hasTheListsInTheirSizes) {
  EXPECT_EQ(VCardCleaner::allowlistFixedUpper().size(), 70U);
  EXPECT_EQ(VCardCleaner::canonicalPropertyTokensUpper().size(), 106U);
  EXPECT_EQ(VCardCleaner::singularPropertiesUpper().size(), 6U);
  for (const auto names :
       {VCardCleaner::allowlistFixedUpper(), VCardCleaner::canonicalPropertyTokensUpper(),
        VCardCleaner::singularPropertiesUpper()}) {
    EXPECT_EQ(setOf(names).size(), names.size());
    for (const TextView name : names) {
      EXPECT_EQ(upperCased(name), name);
    }
  }
}

TEST(Vocabulary, keepsBothListsIndependent) {
  const auto allowlisted = setOf(VCardCleaner::allowlistFixedUpper());
  const auto canonical = setOf(VCardCleaner::canonicalPropertyTokensUpper());
  EXPECT_EQ(without(canonical, allowlisted).size(), 55U);
  const std::vector<Text> onlyAllowlisted{
      u"X-ACTIVITY-ALERT",
      u"X-ADDRESSBOOKSERVER-PHONEME-DATA",
      u"X-ADDRESSING-GRAMMAR",
      u"X-ALT-NOTE",
      u"X-APPLE-SUBADMINISTRATIVEAREA",
      u"X-APPLE-SUBLOCALITY",
      u"X-EVOLUTION-ASSISTANT",
      u"X-EVOLUTION-BLOG-URL",
      u"X-EVOLUTION-FILE-AS",
      u"X-EVOLUTION-MANAGER",
      u"X-EVOLUTION-SPOUSE",
      u"X-EVOLUTION-VIDEO-URL",
      u"X-IMAGEHASH",
      u"X-IMAGETYPE",
      u"X-KIND",
      u"X-MEMBER",
      u"X-MOZILLA-HTML",
      u"X-MS-IMADDRESS",
      u"X-SHARED-PHOTO-DISPLAY-PREF",
  };
  EXPECT_EQ(without(allowlisted, canonical), onlyAllowlisted);
  for (const TextView name : {u"AGENT", u"IMPP", u"KIND", u"MEMBER", u"RELATED", u"X-AIM", u"X-ICQ",
                              u"X-GADUGADU", u"X-QUILLAN-ATTACH"}) {
    EXPECT_TRUE(canonical.contains(Text(name)));
    EXPECT_FALSE(allowlisted.contains(Text(name)));
  }
  EXPECT_TRUE(allowlisted.contains(u"X-MSN"));
}

TEST(Vocabulary, holdsItsOwnNamesAndNoOthers) {
  for (const TextView name : VCardCleaner::allowlistFixedUpper()) {
    EXPECT_TRUE(kAllowlistedNames.contains(name));
    EXPECT_FALSE(kAllowlistedNames.contains(Text(name) + u"X"));
    EXPECT_FALSE(kAllowlistedNames.contains(lowerCased(name)));
  }
  for (const TextView name : VCardCleaner::canonicalPropertyTokensUpper()) {
    EXPECT_TRUE(kCanonicalNames.contains(name));
  }
  for (const TextView name : VCardCleaner::singularPropertiesUpper()) {
    EXPECT_TRUE(kSingularNames.contains(name));
  }
  EXPECT_FALSE(kAllowlistedNames.contains(u""));
  EXPECT_FALSE(kAllowlistedNames.contains(u"IMPP"));
  EXPECT_FALSE(kAllowlistedNames.contains(u"\u014Dotel"));
  EXPECT_FALSE(kSingularNames.contains(u"VND-64-SENSITIVE-CONTENT-CONFIG"));
  // The same low bytes as "TEL".
  EXPECT_FALSE(kAllowlistedNames.contains(u"\u0154\u0145\u014C"));
}

TEST(Vocabulary, listsTheStandardNamesInOrder) {
  EXPECT_EQ(kStandardNames.size(), 30U);
  EXPECT_EQ(kStandardNames.front(), u"ADR");
  EXPECT_EQ(kStandardNames[3], u"CALADRURI");
  EXPECT_EQ(kStandardNames.back(), u"VERSION");
  EXPECT_TRUE(std::is_sorted(kStandardNames.begin(), kStandardNames.end()));
}

TEST(Vocabulary, hasItsConstants) {
  EXPECT_EQ(VCardCleaner::CRLF(), u"\r\n");
  EXPECT_EQ(VCardCleaner::const_memberUpper(), u"X-ADDRESSBOOKSERVER-MEMBER");
  EXPECT_EQ(VCardCleaner::identifierLocale(), "en_US_POSIX");
  EXPECT_EQ(VCardCleaner::minExtendedFragmentLength(), 6);
  ASSERT_EQ(VCardCleaner::allowlistPatternAlternations().size(), 1U);
  EXPECT_EQ(VCardCleaner::allowlistPatternAlternations()[0],
            u"VND-[0-9]+-SENSITIVE-CONTENT-CONFIG");
}

TEST(Vocabulary, trimsWhiteSpaceAndTwoInvisibleCharactersAroundCards) {
  const CharacterSet& set = VCardCleaner::envelopeTrimCharacterSet();
  for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
    ASSERT_EQ(set.contains(codePoint), whitespaceAndNewlineCharacterSet().contains(codePoint) ||
                                           codePoint == 0xFEFF || codePoint == 0x200B)
        << static_cast<unsigned>(codePoint);
  }
}

TEST(IsAllowlistedProperty, comparesListedNamesExactlyAndNumberedOnesInAnyCase) {
  EXPECT_TRUE(VCardCleaner::isAllowlistedProperty(u"TEL"));
  EXPECT_FALSE(VCardCleaner::isAllowlistedProperty(u"tel"));
  EXPECT_FALSE(VCardCleaner::isAllowlistedProperty(u"\u212AEY"));
  EXPECT_FALSE(VCardCleaner::isAllowlistedProperty(u"AGENT"));
  EXPECT_FALSE(VCardCleaner::isAllowlistedProperty(u""));
  EXPECT_TRUE(VCardCleaner::isAllowlistedProperty(u"VND-63-SENSITIVE-CONTENT-CONFIG"));
  EXPECT_TRUE(VCardCleaner::isAllowlistedProperty(u"vnd-12-sensitive-content-config"));
  EXPECT_TRUE(VCardCleaner::isAllowlistedProperty(u"VND-1-\u017FEN\u017FITIVE-CONTENT-CON\uFB01G"));
  EXPECT_TRUE(VCardCleaner::isAllowlistedProperty(u"VND-1-SENSITIVE-CONTENT-CONFIG\r\n"));
  EXPECT_FALSE(VCardCleaner::isAllowlistedProperty(u"VND-1-SENSITIVE-CONTENT-CONFIG\r\n\n"));
  EXPECT_FALSE(VCardCleaner::isAllowlistedProperty(u"VND-1-SENSITIVE-CONTENT-CONFIG "));
  EXPECT_FALSE(VCardCleaner::isAllowlistedProperty(u"XVND-1-SENSITIVE-CONTENT-CONFIG"));
  EXPECT_FALSE(VCardCleaner::isAllowlistedProperty(u"VND--SENSITIVE-CONTENT-CONFIG"));
  EXPECT_FALSE(VCardCleaner::isAllowlistedProperty(u"VND-X-SENSITIVE-CONTENT-CONFIG"));
  EXPECT_FALSE(VCardCleaner::isAllowlistedProperty(u"VND-\uFF16-SENSITIVE-CONTENT-CONFIG"));
}

} // namespace
} // namespace cardwright
