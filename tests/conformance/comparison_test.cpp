#include "conformance/comparison.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright::conformance {
namespace {

/// Path, expected and got of the first difference, or "equal".
[[nodiscard]] std::string compared(const char* expected, const char* got) {
  JsonDocument expectedDocument;
  JsonDocument gotDocument;
  expectedDocument.Parse(expected);
  gotDocument.Parse(got);
  EXPECT_FALSE(expectedDocument.HasParseError()) << expected;
  EXPECT_FALSE(gotDocument.HasParseError()) << got;
  const auto difference = firstDifference(expectedDocument, gotDocument);
  return difference ? difference->path + '|' + difference->expected + '|' + difference->got
                    : "equal";
}

TEST(Comparison, ignoresTheOrderOfMembers) {
  EXPECT_EQ(compared(R"({"a":1,"b":[true,null]})", R"({"b":[true,null],"a":1})"), "equal");
}

TEST(Comparison, keepsTheOrderOfLists) {
  EXPECT_EQ(compared("[1,2]", "[2,1]"), "[0]|1|2");
}

TEST(Comparison, comparesNumbersByValue) {
  EXPECT_EQ(compared("1", "1.0"), "equal");
  EXPECT_EQ(compared("18446744073709551615", "18446744073709551615"), "equal");
  EXPECT_EQ(compared("18446744073709551615", "-1"), "|18446744073709551615|-1");
  EXPECT_EQ(compared("9223372036854775807", "9223372036854775806"),
            "|9223372036854775807|9223372036854775806");
}

TEST(Comparison, tellsKindsApart) {
  EXPECT_EQ(compared("null", "false"), "|null|false");
  EXPECT_EQ(compared(R"("")", "null"), R"(|""|null)");
  EXPECT_EQ(compared("1", R"("1")"), R"(|1|"1")");
  EXPECT_EQ(compared("[]", "{}"), "|[]|{}");
}

TEST(Comparison, namesThePlaceOfTheFirstDifference) {
  EXPECT_EQ(compared(R"({"a":[{"b":"x"}]})", R"({"a":[{"b":"y"}]})"), R"(.a[0].b|"x"|"y")");
}

TEST(Comparison, findsWhatOnlyOneSideHas) {
  EXPECT_EQ(compared(R"({"a":1})", "{}"), R"(|{"a":1}|{})");
  EXPECT_EQ(compared("{}", R"({"a":1})"), R"(|{}|{"a":1})");
  EXPECT_EQ(compared(R"([{"a":1}])", R"([{"b":1}])"), R"([0]|{"a":1}|{"b":1})");
  EXPECT_EQ(compared("[1]", "[1,2]"), "[1]|(nothing)|2");
}

} // namespace
} // namespace cardwright::conformance
