#include "base/scan_lanes.h"
#include "support/random_source.h"

#include <gtest/gtest.h>

#include <array>

namespace cardwright {
namespace {

Text randomText(RandomSource& random, std::size_t size) {
  static constexpr std::array<char16_t, 20> kUnits = {
      u'\r', u'\n', u':',   u'&',   u'-',   u'x',   u'X', u'D', u'd',  u'a',
      u'b',  u'"',  0x00FF, 0x2D3A, 0xFF3A, 0x803A, u';', u'.', u'\\', 0};
  Text text;
  for (std::size_t i = 0; i < size; ++i) {
    text.push_back(random.chance(60) ? u'a' : random.oneOf(kUnits));
  }
  return text;
}

TEST(ScanLanes, findWhatThePlainFormsFind) {
  RandomSource random(20261121);
  for (int round = 0; round < 20000; ++round) {
    const Text text = randomText(random, random.below(80));
    const std::size_t begin = random.below(text.size() + 1);
    ASSERT_EQ(marksOfLine(text, begin), marksOfLinePlainly(text, begin));
    ASSERT_EQ(endOfLine(text, begin), endOfLinePlainly(text, begin));
  }
}

TEST(ScanLanes, findDoubleCrsWhereverTheyStand) {
  for (std::size_t size = 0; size < 70; ++size) {
    Text text(size, u'a');
    EXPECT_EQ(findDoubleCr(text), TextView::npos);
    for (std::size_t at = 0; at + 1 < size; ++at) {
      Text damaged = text;
      damaged[at] = damaged[at + 1] = u'\r';
      ASSERT_EQ(findDoubleCr(damaged), at) << size;
    }
    for (std::size_t at = 0; at < size; ++at) {
      Text lone = text;
      lone[at] = u'\r';
      ASSERT_EQ(findDoubleCr(lone), TextView::npos) << size;
    }
  }
}

TEST(ScanLanes, markWhatALineHolds) {
  const Text text = u"A;B=X-C:a:b&c\r\nD";
  const LineMarks marks = marksOfLine(text, 0);
  EXPECT_EQ(marks.end, 13U);
  EXPECT_EQ(marks.colon, 7U);
  EXPECT_TRUE(marks.hasFurtherColon);
  EXPECT_TRUE(marks.hasAmpersand);
  EXPECT_TRUE(marks.hasPrefixHyphen);
  const LineMarks last = marksOfLine(text, 15);
  EXPECT_EQ(last.end, 16U);
  EXPECT_EQ(last.colon, 16U);
  EXPECT_FALSE(last.hasFurtherColon);
}

TEST(ScanLanes, aHyphenAtTheBeginningOfALineIsNoPrefix) {
  EXPECT_FALSE(marksOfLine(u"x-", 1).hasPrefixHyphen);
  EXPECT_TRUE(marksOfLine(u"x-", 0).hasPrefixHyphen);
  EXPECT_TRUE(marksOfLine(Text(15, u'a') + u"d-" + Text(40, u'a'), 0).hasPrefixHyphen);
}

} // namespace
} // namespace cardwright
