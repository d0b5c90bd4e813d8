#include "cardwright/vcard_custom_value.h"
#include "cardwright/vcard_gender_value.h"
#include "cardwright/vcard_geo_value.h"
#include "support/text_printer.h"
#include "support/value_texts.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

namespace cardwright {
namespace {

// Gender

TEST(VCardGenderValue, splitsAtTheFirstSemicolon) {
  struct Row {
    TextView text;
    TextView sex;
    std::optional<TextView> identity;
    TextView written;
  };
  const Row kRows[] = {
      {u"M", u"M", std::nullopt, u"M"},
      {u"M;man", u"M", u"man", u"M;man"},
      {u";x", u"", u"x", u";x"},
      {u"M;", u"M", u"", u"M;"},
      {u";", u"", u"", u";"},
      {u"", u"", std::nullopt, u""},
      {u"O;it's complicated; very", u"O", u"it's complicated; very", u"O;it's complicated\\; very"},
      {u"a\\,b;c\\,d", u"a,b", u"c,d", u"a\\,b;c\\,d"},
      {u"a\\nb", u"a\nb", std::nullopt, u"a\\nb"},
      // A backslash before the first semicolon does not hold it.
      {u"a\\;b", u"a", u"b", u"a;b"},
      {u"male", u"male", std::nullopt, u"male"},
  };
  for (const Row& row : kRows) {
    for (const VersionCode version : kVersionCodes) {
      const auto gender = parsed<VCardGenderValue>(row.text, version);
      EXPECT_EQ(gender->sex(), row.sex) << testing::PrintToString(row.text);
      EXPECT_EQ(gender->identity(), row.identity) << testing::PrintToString(row.text);
      EXPECT_EQ(written(*gender, version), row.written) << testing::PrintToString(row.text);
    }
  }
}

TEST(VCardGenderValue, keepsItsIdentityWhenNoneComes) {
  const auto gender = parsed<VCardGenderValue>(u"M;man");
  EXPECT_TRUE(gender->parse(u"F", 4, nullptr));
  EXPECT_EQ(gender->sex(), TextView(u"F"));
  EXPECT_EQ(gender->identity(), TextView(u"man"));
  EXPECT_TRUE(gender->parse(u"F;", 4, nullptr));
  EXPECT_EQ(gender->identity(), TextView());
}

TEST(VCardGenderValue, writesWhatIsPresent) {
  VCardGenderValue gender;
  EXPECT_FALSE(gender.sex());
  EXPECT_FALSE(gender.identity());
  EXPECT_EQ(written(gender), u"");
  gender.setIdentity(u"a;b");
  EXPECT_EQ(written(gender), u";a\\;b");
  gender.setSex(u"x;y");
  EXPECT_EQ(written(gender), u"x\\;y;a\\;b");
  gender.setIdentity(std::nullopt);
  EXPECT_EQ(written(gender), u"x\\;y");
  EXPECT_EQ(gender.type(), TextView(u"Gender"));
}

TEST(VCardGenderValue, decodesBothPartsByThemselves) {
  const auto gender = parsedAs<VCardGenderValue>(true, u"utf-8", u"=4D;=C3=A9=3B");
  EXPECT_EQ(gender->sex(), TextView(u"M"));
  EXPECT_EQ(gender->identity(), TextView(u"\u00E9;"));
}

// Geographic position

struct Position {
  TextView text;
  double latitude;
  double longitude;
};

constexpr Position kPositions[] = {
    {u"37.386013;-122.082932", 37.386013, -122.082932},
    {u"37.386013,-122.082932", 37.386013, -122.082932},
    {u" 37.5 ; 1 ", 37.5, 1},
    {u"\t1;\u30002", 1, 2},
    {u"1;2;3", 1, 2},
    {u"1,2;3", 1, 2},
    {u"1;2,3", 1, 2},
    {u";", 0, 0},
    {u",", 0, 0},
    {u"1;", 1, 0},
    {u";1", 0, 1},
    {u"x;y", 0, 0},
    {u"1x;2y", 1, 2},
    {u"+1;+2", 1, 2},
    {u"1e2;-1E-2", 100, -0.01},
    {u"1e;2e+", 1, 2},
    {u".5;5.", 0.5, 5},
    {u"geo:1,2", 0, 2},
    {u"1\\;2", 1, 2},
    {u"0x10;2", 0, 2},
    {u"1.2.3;4", 1.2, 4},
    {u"1e300;-1e300", 1e300, -1e300},
    {u"\u0661;2", 0, 2},
};

TEST(VCardGeoValue, readsTheNumbersAroundTheFirstSeparator) {
  for (const Position& row : kPositions) {
    for (const VersionCode version : kVersionCodes) {
      const auto position = parsed<VCardGeoValue>(row.text, version);
      EXPECT_EQ(position->latitude(), row.latitude) << testing::PrintToString(row.text);
      EXPECT_EQ(position->longitude(), row.longitude) << testing::PrintToString(row.text);
    }
  }
}

TEST(VCardGeoValue, leavesItsFieldsWithoutASeparator) {
  const auto position = parsed<VCardGeoValue>(u"1;2");
  for (const TextView text : {u"", u"37.386013", u"1 2", u"1:2", u"1\uFF1B2"}) {
    EXPECT_FALSE(position->parse(text, 4, nullptr)) << testing::PrintToString(text);
  }
  EXPECT_EQ(position->latitude(), 1);
  EXPECT_EQ(position->longitude(), 2);
}

TEST(VCardGeoValue, replacesBothFields) {
  const auto position = parsed<VCardGeoValue>(u"1;2");
  EXPECT_TRUE(position->parse(u"x;", 4, nullptr));
  EXPECT_EQ(position->latitude(), 0);
  EXPECT_EQ(position->longitude(), 0);
}

TEST(VCardGeoValue, startsAtZero) {
  EXPECT_EQ(VCardGeoValue().latitude(), 0);
  EXPECT_EQ(VCardGeoValue().longitude(), 0);
  EXPECT_EQ(VCardGeoValue().type(), TextView(u"Geo3.0"));
}

TEST(VCardGeoValue, writesSixDecimalsForEveryVersion) {
  struct Row {
    double number;
    const char16_t* text;
  };
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const Row kRows[] = {
      {37.386013, u"37.386013"},
      {-122.082932, u"-122.082932"},
      {0, u"0.000000"},
      {-0.0, u"-0.000000"},
      {1.0 / 3, u"0.333333"},
      {2.0 / 3, u"0.666667"},
      {0.0000005, u"0.000000"},
      {0.0000015, u"0.000002"},
      {-0.0000001, u"-0.000000"},
      {0.9999999, u"1.000000"},
      {179.9999995, u"180.000000"},
      {1e21, u"1000000000000000000000.000000"},
      {1e-300, u"0.000000"},
      {kInfinity, u"inf"},
      {-kInfinity, u"-inf"},
  };
  for (const Row& row : kRows) {
    VCardGeoValue position;
    position.setLatitude(row.number);
    position.setLongitude(1);
    for (const VersionCode version : kVersionCodes) {
      EXPECT_EQ(written(position, version), Text(row.text) + u";1.000000");
    }
    position.setLatitude(0);
    position.setLongitude(row.number);
    EXPECT_EQ(written(position), Text(u"0.000000;") + row.text);
  }
}

TEST(VCardGeoValue, writesTheLargestNumbersWhole) {
  VCardGeoValue position;
  position.setLatitude(-std::numeric_limits<double>::max());
  position.setLongitude(std::numeric_limits<double>::max());
  const Text text = written(position);
  EXPECT_EQ(text.size(), 1U + 309 + 7 + 1 + 309 + 7);
  const auto again = parsed<VCardGeoValue>(text);
  EXPECT_EQ(again->latitude(), -std::numeric_limits<double>::max());
  EXPECT_EQ(again->longitude(), std::numeric_limits<double>::max());
}

TEST(VCardGeoValue, writesWhatPrintfWrites) {
  double number = 1e-9;
  for (int i = 0; i < 400; ++i, number *= -1.7) {
    VCardGeoValue position;
    position.setLatitude(number);
    char expected[400];
    std::snprintf(expected, sizeof(expected), "%.6f;%.6f", number, 0.0);
    EXPECT_EQ(written(position),
              Text(expected, expected + std::char_traits<char>::length(expected)));
  }
}

TEST(VCardGeoValue, dependsOnNoLocaleOfTheEnvironment) {
  for (const char* locale : {"de_DE.UTF-8", "de_DE", "C"}) {
    const char* set = std::setlocale(LC_ALL, locale);
    EXPECT_EQ(written(*parsed<VCardGeoValue>(u"1.5;2.5")), u"1.500000;2.500000")
        << (set != nullptr ? set : locale);
  }
  std::setlocale(LC_ALL, "C");
}

TEST(VCardGeoValue, isNotDecoded) {
  const auto position = parsedAs<VCardGeoValue>(true, u"utf-8", u"=31;2");
  EXPECT_EQ(position->latitude(), 0);
  EXPECT_EQ(position->longitude(), 2);
}

// Label and value

TEST(VCardCustomValue, splitsIntoLabelAndValue) {
  struct Row {
    TextView text;
    std::optional<TextView> label;
    TextView value;
    TextView written;
  };
  const Row kRows[] = {
      {u"Home-=+=-555", u"Home", u"555", u"Home-=+=-555"},
      {u"555", std::nullopt, u"555", u"555"},
      {u"", std::nullopt, u"", u""},
      {u"-=+=-", u"", u"", u"-=+=-"},
      {u"a-=+=-", u"a", u"", u"a-=+=-"},
      {u"-=+=-b", u"", u"b", u"-=+=-b"},
      {u"a-=+=-b-=+=-c", u"a", u"b", u"a-=+=-b"},
      {u"a-=+=--=+=-c", u"a", u"", u"a-=+=-"},
      {u"a-=+=-=+=-b", u"a", u"=+=-b", u"a-=+=-=+=-b"},
      {u"a-=+-=+=-b", u"a-=+", u"b", u"a-=+-=+=-b"},
      {u"a-=+=b", std::nullopt, u"a-=+=b", u"a-=+=b"},
      {u"a;b-=+=-c\\,d", u"a;b", u"c,d", u"a\\;b-=+=-c\\,d"},
      // The text is decoded first and split afterwards.
      {u"a-\\=+=-b", u"a", u"b", u"a-=+=-b"},
      {u"a-=\\+=-b\\nc", u"a", u"b\nc", u"a-=+=-b\\nc"},
  };
  for (const Row& row : kRows) {
    for (const VersionCode version : kVersionCodes) {
      const auto custom = parsed<VCardCustomValue>(row.text, version);
      EXPECT_EQ(custom->label(), row.label) << testing::PrintToString(row.text);
      EXPECT_EQ(custom->value(), row.value) << testing::PrintToString(row.text);
      EXPECT_EQ(written(*custom, version), row.written) << testing::PrintToString(row.text);
    }
  }
}

TEST(VCardCustomValue, keepsItsLabelWhenNoneComes) {
  const auto custom = parsed<VCardCustomValue>(u"a-=+=-b");
  EXPECT_TRUE(custom->parse(u"c", 4, nullptr));
  EXPECT_EQ(custom->label(), TextView(u"a"));
  EXPECT_EQ(custom->value(), TextView(u"c"));
}

TEST(VCardCustomValue, writesWhatIsPresent) {
  VCardCustomValue custom;
  EXPECT_FALSE(custom.label());
  EXPECT_FALSE(custom.value());
  EXPECT_FALSE(custom.type());
  EXPECT_EQ(written(custom), u"");
  custom.setValue(u"a;b");
  EXPECT_EQ(written(custom), u"a\\;b");
  custom.setLabel(u"l,");
  EXPECT_EQ(written(custom), u"l\\,-=+=-a\\;b");
  custom.setValue(std::nullopt);
  EXPECT_EQ(written(custom), u"l\\,-=+=-");
  custom.setLabel(u"");
  EXPECT_EQ(written(custom), u"-=+=-");
}

TEST(VCardCustomValue, decodesBeforeItSplits) {
  const auto custom = parsedAs<VCardCustomValue>(true, u"utf-8", u"=C3=A9-=3D+=3D-=41");
  EXPECT_EQ(custom->label(), TextView(u"\u00E9"));
  EXPECT_EQ(custom->value(), TextView(u"A"));
}

} // namespace
} // namespace cardwright
