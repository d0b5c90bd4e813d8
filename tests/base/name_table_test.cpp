#include "base/name_table.h"
#include "support/text_printer.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright {
namespace {

constexpr NameTable kTable({
    NameRow<int>{u"TEL", 1},
    {u"tel-2", 2},
    {u"N", 3},
    {u"STRASS-K", 4},
    {u"Geo3.0", 5},
});

TEST(NameTable, isThereBeforeTheProgramRuns) {
  static_assert(kTable.find(u"TEL")->value == 1);
  static_assert(kTable.find(u"tel") == nullptr);
  static_assert(kTable.rows().size() == 5);
}

TEST(NameTable, findsExactNames) {
  EXPECT_EQ(kTable.find(u"Geo3.0")->value, 5);
  EXPECT_EQ(kTable.find(u"GEO3.0"), nullptr);
  EXPECT_EQ(kTable.find(u"TE"), nullptr);
  EXPECT_EQ(kTable.find(u"TELX"), nullptr);
  EXPECT_EQ(kTable.find(u""), nullptr);
}

TEST(NameTable, findsNamesWithoutRegardToCase) {
  EXPECT_EQ(kTable.findIgnoringCase(u"tel")->value, 1);
  EXPECT_EQ(kTable.findIgnoringCase(u"Tel-2")->value, 2);
  EXPECT_EQ(kTable.findIgnoringCase(u"gEO3.0")->value, 5);
  EXPECT_EQ(kTable.findIgnoringCase(u"te"), nullptr);
  EXPECT_EQ(kTable.findIgnoringCase(u""), nullptr);
  EXPECT_EQ(kTable.findIgnoringCase(u"T\u00C9L"), nullptr);
}

TEST(NameTable, knowsTheLettersThatFoldToAscii) {
  EXPECT_EQ(kTable.findIgnoringCase(u"stra\u00DF-\u212A")->value, 4);
  EXPECT_EQ(kTable.findIgnoringCase(u"\u017Ftra\u017Fs-k")->value, 4);
  EXPECT_EQ(kTable.findIgnoringCase(u"\uFB06rass-K")->value, 4);
  EXPECT_EQ(kTable.find(u"stra\u00DF-\u212A"), nullptr);
}

TEST(NameTable, doesNotTakeOtherSignsForLetters) {
  // "[" and "{" stand as far apart as "A" and "a".
  static constexpr NameTable kSigns({NameRow<int>{u"a[", 1}, {u"@", 2}});
  EXPECT_EQ(kSigns.findIgnoringCase(u"A[")->value, 1);
  EXPECT_EQ(kSigns.findIgnoringCase(u"A{"), nullptr);
  EXPECT_EQ(kSigns.findIgnoringCase(u"`"), nullptr);
}

TEST(NameTable, findsEveryRowOfALargeTable) {
  static constexpr NameTable kLetters({
      NameRow<int>{u"a", 0},
      {u"b", 1},
      {u"c", 2},
      {u"d", 3},
      {u"e", 4},
      {u"f", 5},
      {u"g", 6},
      {u"h", 7},
      {u"i", 8},
      {u"j", 9},
      {u"k", 10},
      {u"l", 11},
      {u"ab", 12},
      {u"ba", 13},
      {u"aa", 14},
      {u"bb", 15},
      {u"aba", 16},
      {u"bab", 17},
  });
  for (const auto& row : kLetters.rows()) {
    ASSERT_NE(kLetters.find(row.name), nullptr);
    EXPECT_EQ(kLetters.find(row.name)->value, row.value);
    EXPECT_EQ(kLetters.findIgnoringCase(upperCased(row.name))->value, row.value);
  }
}

TEST(NameTable, gulpsNamesOfAnyLength) {
  for (const std::size_t length : {63U, 64U, 65U, 200U}) {
    EXPECT_EQ(kTable.find(Text(length, u'T')), nullptr);
    EXPECT_EQ(kTable.findIgnoringCase(Text(length, u'T')), nullptr);
    EXPECT_EQ(kTable.findIgnoringCase(Text(length, u'\u017F')), nullptr);
  }
  expectLinear(1'000'000, [](std::size_t size) {
    EXPECT_EQ(kTable.findIgnoringCase(u"stra" + Text(size, u'\u00DF')), nullptr);
  });
}

} // namespace
} // namespace cardwright
