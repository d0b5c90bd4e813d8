#include "base/case.h"
#include "cardwright/vocabulary.h"
#include "model/value_types.h"
#include "support/text_printer.h"
#include "vocabulary_constants.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <map>
#include <set>
#include <span>
#include <string>

namespace cardwright {
namespace {

// Which of the versions 2, 3 and 4 know a name: bit c stands for version code c.
constexpr unsigned k2 = 4;
constexpr unsigned k3 = 8;
constexpr unsigned k4 = 16;
constexpr unsigned k23 = 12;
constexpr unsigned k34 = 24;
constexpr unsigned kAll = 28;

struct Known {
  TextView name;
  unsigned versions;
};

constexpr Known kProperties[] = {
    {u"ADR", kAll},        {u"BDAY", kAll},      {u"EMAIL", kAll},     {u"FN", kAll},
    {u"GEO", kAll},        {u"KEY", kAll},       {u"LOGO", kAll},      {u"N", kAll},
    {u"NOTE", kAll},       {u"ORG", kAll},       {u"PHOTO", kAll},     {u"REV", kAll},
    {u"ROLE", kAll},       {u"SOUND", kAll},     {u"TEL", kAll},       {u"TITLE", kAll},
    {u"TZ", kAll},         {u"UID", kAll},       {u"URL", kAll},       {u"VERSION", kAll},
    {u"AGENT", k23},       {u"LABEL", k23},      {u"MAILER", k23},     {u"CALADRURI", k34},
    {u"CALURI", k34},      {u"CATEGORIES", k34}, {u"IMPP", k34},       {u"NICKNAME", k34},
    {u"PRODID", k34},      {u"SOURCE", k34},     {u"CLASS", k3},       {u"NAME", k3},
    {u"PROFILE", k3},      {u"SORT-STRING", k3}, {u"ANNIVERSARY", k4}, {u"BIRTHPLACE", k4},
    {u"CLIENTPIDMAP", k4}, {u"DEATHDATE", k4},   {u"DEATHPLACE", k4},  {u"EXPERTISE", k4},
    {u"FBURL", k4},        {u"GENDER", k4},      {u"HOBBY", k4},       {u"INTEREST", k4},
    {u"KIND", k4},         {u"LANG", k4},        {u"MEMBER", k4},      {u"ORG-DIRECTORY", k4},
    {u"RELATED", k4},      {u"XML", k4},
};

constexpr Known kParameters[] = {
    {u"LANGUAGE", kAll}, {u"TYPE", kAll}, {u"VALUE", kAll},   {u"ENCODING", k23}, {u"CONTEXT", k3},
    {u"CHARSET", k2},    {u"ALTID", k4},  {u"CALSCALE", k4},  {u"GEO", k4},       {u"INDEX", k4},
    {u"LABEL", k4},      {u"LEVEL", k4},  {u"MEDIATYPE", k4}, {u"PID", k4},       {u"PREF", k4},
    {u"SORT-AS", k4},    {u"TZ", k4},
};

constexpr Known kTypes[] = {
    {u"home", kAll},
    {u"work", kAll},
    {u"voice", kAll},
    {u"fax", kAll},
    {u"cell", kAll},
    {u"video", kAll},
    {u"pager", kAll},
    {u"pref", k23},
    {u"msg", k23},
    {u"bbs", k23},
    {u"modem", k23},
    {u"car", k23},
    {u"isdn", k23},
    {u"pcs", k23},
    {u"internet", k23},
    {u"X400", k23},
    {u"X509", k23},
    {u"pgp", k23},
    {u"dom", k23},
    {u"intl", k23},
    {u"postal", k23},
    {u"parcel", k23},
    {u"personal", k3},
    {u"business", k3},
    {u"mobile", k3},
    {u"text", k4},
    {u"textphone", k4},
    {u"contact", k4},
    {u"acquaintance", k4},
    {u"friend", k4},
    {u"met", k4},
    {u"co-worker", k4},
    {u"colleague", k4},
    {u"co-resident", k4},
    {u"neighbor", k4},
    {u"child", k4},
    {u"parent", k4},
    {u"sibling", k4},
    {u"spouse", k4},
    {u"kin", k4},
    {u"muse", k4},
    {u"crush", k4},
    {u"date", k4},
    {u"sweetheart", k4},
    {u"me", k4},
    {u"agent", k4},
    {u"emergency", k4},
    {u"father-in-law", k4},
    {u"mother-in-law", k4},
    {u"son-in-law", k4},
    {u"daughter-in-law", k4},
    {u"brother-in-law", k4},
    {u"sister-in-law", k4},
    {u"nephew", k4},
    {u"niece", k4},
    {u"cousin", k4},
    {u"grandparent", k4},
    {u"grandfather", k4},
    {u"grandmother", k4},
    {u"grandson", k4},
    {u"granddaugther", k4},
    {u"grandchild", k4},
    {u"family", k4},
};

constexpr Known kEncodings[] = {
    {u"b", k3},
    {u"quoted-printable", k2},
    {u"base64", k2},
    {u"8bit", k2},
};

constexpr Known kValues[] = {
    {u"text", k34},      {u"uri", k34},       {u"date", k34},
    {u"date-time", k34}, {u"time", k4},       {u"date-and-or-time", k4},
    {u"timestamp", k4},  {u"boolean", k4},    {u"integer", k4},
    {u"float", k4},      {u"utc-offset", k4}, {u"language-tag", k4},
    {u"BINARY", k3},     {u"INLINE", k2},     {u"URL", k2},
    {u"CONTENT-ID", k2}, {u"CID", k2},        {u"GIF", k23},
    {u"CGM", k23},       {u"BMP", k23},       {u"MET", k23},
    {u"PMB", k23},       {u"DIB", k23},       {u"PICT", k23},
    {u"TIFF", k23},      {u"PDF", k23},       {u"PS", k23},
    {u"JPEG", k23},      {u"MPEG", k23},      {u"MPEG2", k23},
    {u"AVI", k23},       {u"QTIME", k23},
};

using Query = bool (*)(TextView, VersionCode);

struct Table {
  const char* title;
  Query query;
  std::span<const Known> known;
  std::map<unsigned, std::size_t> counts; ///< names by their versions
};

const Table kTables[] = {
    {"properties",
     propertyIsSupportedForVersion,
     kProperties,
     {{kAll, 20}, {k23, 3}, {k34, 7}, {k3, 4}, {k4, 16}}},
    {"parameters",
     parameterIsSupportedForVersion,
     kParameters,
     {{kAll, 3}, {k23, 1}, {k3, 1}, {k2, 1}, {k4, 11}}},
    {"types", typeIsSupportedForVersion, kTypes, {{kAll, 7}, {k23, 15}, {k3, 3}, {k4, 38}}},
    {"encodings", encodingIsSupportedForVersion, kEncodings, {{k3, 1}, {k2, 3}}},
    {"values",
     valueIsSupportedForVersion,
     kValues,
     {{k34, 4}, {k4, 8}, {k3, 1}, {k2, 4}, {k23, 15}}},
};

constexpr VersionCode kVersions[] = {std::numeric_limits<VersionCode>::min(),
                                     -33,
                                     -32,
                                     -2,
                                     -1,
                                     0,
                                     1,
                                     2,
                                     3,
                                     4,
                                     5,
                                     6,
                                     31,
                                     32,
                                     33,
                                     34,
                                     36,
                                     63,
                                     64,
                                     66,
                                     68,
                                     std::numeric_limits<VersionCode>::max()};

TEST(SupportTables, answerForEveryNameTheyKnow) {
  for (const Table& table : kTables) {
    for (const Known& known : table.known) {
      for (const VersionCode version : kVersions) {
        const bool expected = version >= 2 && version <= 4 && (known.versions >> version & 1U) != 0;
        for (const Text& name :
             {Text(known.name), upperCased(known.name), lowerCased(known.name)}) {
          EXPECT_EQ(table.query(name, version), expected)
              << table.title << ' ' << testing::PrintToString(name) << ' ' << version;
        }
      }
    }
  }
}

TEST(SupportTables, holdSoManyNamesOfEachKind) {
  constexpr std::size_t kSizes[] = {50, 17, 63, 4, 32};
  for (std::size_t i = 0; i < std::size(kTables); ++i) {
    EXPECT_EQ(kTables[i].known.size(), kSizes[i]) << kTables[i].title;
    std::map<unsigned, std::size_t> counts;
    for (const Known& known : kTables[i].known) {
      ++counts[known.versions];
    }
    EXPECT_EQ(counts, kTables[i].counts) << kTables[i].title;
  }
}

// No version 0 exists, so only names that a table does not know count as supported in it.
TEST(SupportTables, knowNoOtherWordOfTheVocabulary) {
  std::set<Text> words;
  for (const VocabularyConstant& constant : kVocabularyConstants) {
    words.insert(lowerCased(constant.text));
  }
  for (const Table& table : kTables) {
    for (const Known& known : table.known) {
      words.insert(lowerCased(known.name));
    }
  }
  ASSERT_GT(words.size(), 300U);
  for (const Table& table : kTables) {
    for (const Text& word : words) {
      const bool isKnown =
          std::any_of(table.known.begin(), table.known.end(),
                      [&word](const Known& known) { return lowerCased(known.name) == word; });
      EXPECT_EQ(table.query(word, 0), !isKnown)
          << table.title << ' ' << testing::PrintToString(word);
    }
  }
}

TEST(SupportTables, supportNamesTheyDoNotKnow) {
  const Text lone(1, char16_t{0xD800});
  for (const Table& table : kTables) {
    for (const TextView name :
         {TextView(u"X-FOO"), TextView(u""), TextView(u"\u00C9"), TextView(u"HOM"),
          TextView(u"HOMEX"), TextView(u" TEL"), TextView(lone)}) {
      for (const VersionCode version : kVersions) {
        EXPECT_TRUE(table.query(name, version)) << table.title << ' ' << version;
      }
    }
    EXPECT_TRUE(table.query(Text(100'000, u'A'), 4)) << table.title;
  }
}

TEST(SupportTables, compareNamesByFullCaseFolding) {
  EXPECT_FALSE(propertyIsSupportedForVersion(u"\u212Aind", 3));
  EXPECT_TRUE(propertyIsSupportedForVersion(u"\u212Aind", 4));
  EXPECT_FALSE(propertyIsSupportedForVersion(u"cla\u00DF", 4));
  EXPECT_TRUE(propertyIsSupportedForVersion(u"CLA\u1E9E", 3));
  EXPECT_FALSE(typeIsSupportedForVersion(u"po\uFB06al", 4));
  EXPECT_TRUE(propertyIsSupportedForVersion(u"K\u0131ND", 3)) << "dotless i is another letter";
}

TEST(SupportTables, tellTheVersionsApart) {
  EXPECT_FALSE(propertyIsSupportedForVersion(u"kind", 3));
  EXPECT_TRUE(propertyIsSupportedForVersion(u"kind", 4));
  EXPECT_TRUE(propertyIsSupportedForVersion(u"X-FOO", 0));
  EXPECT_FALSE(parameterIsSupportedForVersion(u"CHARSET", 4));
  EXPECT_FALSE(encodingIsSupportedForVersion(u"b", 2));
  EXPECT_TRUE(encodingIsSupportedForVersion(u"b", 3));
}

TEST(SupportTables, keepTheirOwnSpellingOfGranddaughter) {
  EXPECT_FALSE(typeIsSupportedForVersion(u"granddaugther", 3));
  EXPECT_TRUE(typeIsSupportedForVersion(u"granddaugther", 4));
  EXPECT_TRUE(typeIsSupportedForVersion(u"granddaughter", 3)) << "not in the table";
  EXPECT_EQ(cVCardParameter_TYPE_RELATED_GRAND_DAUGTHER, u"granddaugther");
  EXPECT_EQ(cVCardValue_ABLABEL_GRAND_DAUGHTER, u"granddaughter");
  EXPECT_TRUE(typeIsSupportedForVersion(cVCardParameter_TYPE_RELATED_UNCLE, 2));
  EXPECT_TRUE(typeIsSupportedForVersion(cVCardParameter_TYPE_RELATED_AUNT, 2));
}

TEST(SupportTables, mayBeInitializedAnyNumberOfTimes) {
  initialize();
  EXPECT_FALSE(propertyIsSupportedForVersion(u"KIND", 2));
  initialize();
  EXPECT_FALSE(propertyIsSupportedForVersion(u"KIND", 2));
}

TEST(EquivalentTypes, areTextForStructuredTypesOnly) {
  for (const TextView type : {u"Address", u"N", u"Gender", u"Org", u"Geo3.0", u"Custom"}) {
    EXPECT_EQ(equivalentType(type), cVCardValue_TEXT) << testing::PrintToString(type);
  }
  for (const TextView type : {u"text", u"uri", u"date", u"BINARY", u"utc-offset", u"", u"X-FOO"}) {
    EXPECT_FALSE(equivalentType(type)) << testing::PrintToString(type);
  }
}

TEST(VocabularyConstants, comeInGroupsOfSoMany) {
  const std::map<std::string_view, std::size_t> kGroups = {
      {"Card framing and media type", 3},
      {"Property names", 49},
      {"Further property names: XML of version 4.0, and extensions", 54},
      {"Parameter names", 24},
      {"TYPE values (general, e-mail, key, address) and the TYPE name itself", 16},
      {"Encodings", 4},
      {"TYPE values for telephone numbers", 18},
      {"TYPE values for relations", 48},
      {"Value types and other value words", 26},
      {"CLASS values", 3},
      {"Gender sex values", 5},
      {"KIND values", 6},
      {"TYPE values for social profiles", 22},
      {"Messaging service names", 12},
      {"Values of extension properties", 7},
      {"Address-book label values", 68},
      {"Address-book label values, plain English forms", 22},
      {"Address-book label values of the exchange-server family", 33},
      {"Relationship-status values", 11},
  };
  std::map<std::string_view, std::size_t> groups;
  for (const VocabularyConstant& constant : kVocabularyConstants) {
    ++groups[constant.group];
  }
  EXPECT_EQ(groups, kGroups);
}

TEST(VocabularyConstants, haveNamesOfTheirOwnAndTextsOfAscii) {
  std::set<std::string_view> names;
  for (const VocabularyConstant& constant : kVocabularyConstants) {
    EXPECT_TRUE(names.insert(constant.name).second) << constant.name;
    EXPECT_TRUE(constant.name.starts_with("cVCard")) << constant.name;
    EXPECT_FALSE(constant.text.empty()) << constant.name;
    EXPECT_TRUE(std::all_of(constant.text.begin(), constant.text.end(), [](char16_t unit) {
      return unit > u' ' && unit < 0x7F;
    })) << constant.name;
  }
}

TEST(VocabularyConstants, keepTheCaseInWhichTheyAreWritten) {
  EXPECT_EQ(cVCardMIMEType, u"text/vcard");
  EXPECT_EQ(cVCardProperty_CLIENT_PID_MAP, u"CLIENTPIDMAP");
  EXPECT_EQ(cVCardProperty_X_ABLabel, u"X-ABLabel");
  EXPECT_EQ(cVCardProperty_X_ABRelatedNames, u"X-ABRELATEDNAMES");
  EXPECT_EQ(cVCardProperty_X_SKYPE_GENDER, u"X-SKYPE-SEX");
  EXPECT_EQ(cVCardParameter_TYPE_EMAIL_X400, u"X400");
  EXPECT_EQ(cVCardParameter_ENCODING_B, u"b");
  EXPECT_EQ(cVCardValue_INLINE, u"INLINE");
  EXPECT_EQ(cVCardValue_Geo3_0, u"Geo3.0");
  EXPECT_EQ(cVCardParameter_TYPE_SOCIAL_GOOGLEPLUS, u"google+");
  EXPECT_EQ(cVCardParameter_TYPE_SOCIAL_LINKEDIN_FEED, u"LinkedInFeed");
  EXPECT_EQ(cVCardValue_ABLABEL_HOME_FAX, u"_$!<HomeFAX>!$_");
  EXPECT_EQ(cVCardValue_ABLABEL_ASSISTANT_PHONE, u"assistant");
  EXPECT_EQ(cVCardValue_ABLABEL_EX_TTYPHONE, u"_$!<EX-TtyTddPhone>!$_");
  EXPECT_EQ(cVCardValue_X_WAB_GENDER_UNKNOWN, u"0");
}

TEST(VocabularyConstants, includeTheNamesThatTheTablesKnow) {
  const auto isConstant = [](TextView text) {
    return std::any_of(
        kVocabularyConstants.begin(), kVocabularyConstants.end(),
        [text](const VocabularyConstant& constant) { return constant.text == text; });
  };
  for (const Known& known : kProperties) {
    EXPECT_TRUE(isConstant(known.name)) << testing::PrintToString(known.name);
  }
  for (const Known& known : kEncodings) {
    EXPECT_TRUE(isConstant(known.name)) << testing::PrintToString(known.name);
  }
}

} // namespace
} // namespace cardwright
