#include "cleaner/separators.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <vector>

namespace cardwright {
namespace {

using Repaired = std::optional<Text>;

struct Row {
  Text text;
  Repaired repaired;
};

void expectRows(const std::vector<Row>& rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(repairedSeparators(rows[i].text), rows[i].repaired) << "row " << i;
  }
}

TEST(Separators, leavesTextWithoutDoubledCrsAlone) {
  expectRows({{u"", {}},
              {u"a", {}},
              {u"a\r\nb\r\n", {}},
              {u"a\nb\n", {}},
              {u"a\rb\r", {}},
              {u"a\r\nb\rc\nd", {}},
              {u"a\n\rb\n\rc", {}}});
}

TEST(Separators, makesOneBreakOfCrsBeforeALineFeed) {
  expectRows({{u"a\r\r\nb\r\r\n", u"a\r\nb\r\n"},
              {u"a\r\r\r\nb", u"a\r\nb"},
              {u"a\r\r\r\r\r\r\r\nb", u"a\r\nb"},
              {u"\r\r\n", u"\r\n"},
              {u"a\r\r\n\r\r\nb", u"a\r\n\r\nb"},
              {u"a\r\nb\r\r\nc", u"a\r\nb\r\nc"}});
}

TEST(Separators, makesBreaksOfPairsOfCrs) {
  expectRows({{u"a\r\rb\r\r", u"a\r\nb\r\n"},
              {u"\r\r", u"\r\n"},
              {u"a\r\r\r\rb", u"a\r\n\r\nb"},
              {u"a\r\rb\r\nc", u"a\r\nb\r\nc"},
              {u"a\r\nb\r\r", u"a\r\nb\r\n"}});
}

TEST(Separators, leavesOddRunsOfCrsAlone) {
  expectRows(
      {{u"a\r\rb\r\r\rc", {}}, {u"a\r\rb\rc", {}}, {u"\r\r\r", {}}, {u"a\r\rb\r\r\r\rc\r", {}}});
}

TEST(Separators, leavesPairsAloneInTextWithLoneLineFeeds) {
  expectRows({{u"a\r\rb\nc", {}}, {u"\na\r\rb", {}}, {u"a\r\rb\r\n\nc", {}}});
}

TEST(Separators, goesOnToPairsWhenCrCrLfIsRepaired) {
  // The breaks before line feeds are repaired even where the rest has to stay.
  expectRows({{u"a\r\r\nb\r\rc", u"a\r\nb\r\nc"},
              {u"a\r\r\nb\r\rc\nd", u"a\r\nb\r\rc\nd"},
              {u"a\r\r\nb\rc", u"a\r\nb\rc"},
              {u"a\r\r\nb\r\r\rc", u"a\r\nb\r\r\rc"},
              {u"a\r\r\n\nb\r\rc", u"a\r\n\nb\r\rc"}});
}

TEST(Separators, takesCrsForWhatTheyAreBesideMarks) {
  // A line break ends every character: no mark joins it.
  expectRows({{u"a\r\r\u0301b", u"a\r\n\u0301b"},
              {u"\u0600\r\r\nb", u"\u0600\r\nb"},
              {Text(u"\xD800\r\r") + u"\xDC00", Text(u"\xD800\r\n") + u"\xDC00"}});
}

TEST(Separators, findsPlacesInTheTextBefore) {
  const Text before = u"ab\r\r\r\ncd\r\r\n\r\r\nef";
  const Text after = repairedSeparators(before).value_or(Text());
  ASSERT_EQ(after, u"ab\r\ncd\r\n\r\nef");
  std::array<std::size_t, 6> places = {0, 2, 4, 5, 10, 11};
  placesBeforeSeparatorRepair(before, after, places);
  EXPECT_EQ(places, (std::array<std::size_t, 6>{0, 2, 6, 7, 14, 15}));
}

} // namespace
} // namespace cardwright
