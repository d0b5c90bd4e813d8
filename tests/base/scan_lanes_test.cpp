#include "base/ascii.h"
#include "base/scan_lanes.h"
#include "support/random_source.h"
#include "support/seed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace cardwright {
namespace {

Text randomText(RandomSource& random, std::size_t size) {
  static constexpr std::array<char16_t, 24> kUnits = {
      u'\r',  u'\n',  u':',   u'&',   u'-', u'x', u'X',  u'D', u'd', u'a', u'b', u'"',
      0x00FF, 0x2D3A, 0xFF3A, 0x803A, u';', u'.', u'\\', 0,    u'=', u',', u' ', u'\t'};
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
    ASSERT_EQ(marksOfHeader(text, begin), marksOfHeaderPlainly(text, begin));
    ASSERT_EQ(marksOfValue(text, begin), marksOfValuePlainly(text, begin));
    ASSERT_EQ(mostUtf8Bytes(text), mostUtf8BytesPlainly(text));
    ASSERT_EQ(united(text), unitedPlainly(text));
    ASSERT_EQ(findUnplain(text, begin), findUnplainPlainly(text, begin));
    ASSERT_EQ(findUnsingle(text, begin), findUnsinglePlainly(text, begin));
    ASSERT_EQ(endOfLine(text, begin), findEitherPlainly(text, begin, '\r', '\n'));
    ASSERT_EQ(findEither(text, begin, '"', ':'), findEitherPlainly(text, begin, '"', ':'));
  }
}

TEST(ScanLanes, findEveryUnplainUnitWhereverItStands) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const bool isUnplain = unit < 0x20 || unit == u',' || unit == u';' || unit == u'\\' ||
                           unit == 0x7F || unit >= 0xD7FF;
    const std::size_t at = unit % 12;
    Text text(12, u'a');
    text[at] = static_cast<char16_t>(unit);
    ASSERT_EQ(findUnplain(text, 0), isUnplain ? at : text.size()) << unit;
    ASSERT_EQ(findUnplainPlainly(text, 0), isUnplain ? at : text.size()) << unit;
  }
}

TEST(ScanLanes, countTheBytesOfLongTexts) {
  for (const char16_t unit : {u'a', u'\u00E9', u'\u20AC'}) {
    const Text text(1000003, unit);
    EXPECT_EQ(mostUtf8Bytes(text), mostUtf8BytesPlainly(text));
    EXPECT_EQ(mostUtf8BytesPlainly(text), text.size() * utf8Length(unit));
  }
}

TEST(ScanLanes, takeBlocksThatFit) {
  RandomSource random(20261121);
  for (int round = 0; round < 5000; ++round) {
    const Text text = randomText(random, random.below(80)) + (round % 2 == 0 ? u"" : u"\U0001F600");
    const std::size_t begin = random.below(text.size() + 1);
    const std::size_t room = random.below(100);
    std::size_t left = room;
    const std::size_t count = unitsSurelyWithin(text, begin, left);
    ASSERT_LE(begin + count, text.size());
    const TextView taken = TextView(text).substr(begin, count);
    ASSERT_EQ(room - left, mostUtf8BytesPlainly(taken));
    ASSERT_TRUE(std::none_of(taken.begin(), taken.end(), isHighSurrogate));
#if defined(__SSE2__)
    const TextView block = TextView(text).substr(begin + count, 8);
    if (block.size() == 8 && std::none_of(block.begin(), block.end(), isHighSurrogate)) {
      ASSERT_GT(utf8Length(block.front()), left) << "one more would have fitted";
    }
#endif
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

TEST(ScanLanes, markWhatAHeaderHolds) {
  const Text text = u"a.B;C=X-D;E:a:b&c\r\nD";
  const HeaderMarks marks = marksOfHeader(text, 0);
  EXPECT_EQ(marks.end, 11U);
  EXPECT_EQ(marks.nameEnd, 3U);
  EXPECT_TRUE(marks.hasColon);
  EXPECT_TRUE(marks.hasDot);
  EXPECT_FALSE(marks.hasQuotes);
  EXPECT_FALSE(marks.isOdd);
  const HeaderMarks last = marksOfHeader(text, 19);
  EXPECT_EQ(last.end, 20U);
  EXPECT_EQ(last.nameEnd, 20U);
  EXPECT_FALSE(last.hasColon);
  const HeaderMarks quoted = marksOfHeader(Text(u"A;B=\"C\":") + Text(20, u' '), 0);
  EXPECT_TRUE(quoted.hasQuotes);
  EXPECT_FALSE(quoted.isOdd);
  for (const TextView odd : {u"A\\;B:", u"A&:", u"\u00C4:", u"\u8041:"}) {
    EXPECT_TRUE(marksOfHeader(Text(odd) + Text(20, u' '), 0).isOdd);
  }
}

TEST(ScanLanes, findGapsInParameters) {
  for (const TextView sound : {u"A:", u"A;B:", u"A;B=C:", u"A;B=C,D;E:", u"A;B==C:", u"A;,B:",
                               u"A;B=C,,D:", u"A:;;", u"A;B\r;;"}) {
    EXPECT_FALSE(marksOfHeader(Text(sound) + Text(20, u'a'), 0).hasGaps);
    EXPECT_FALSE(marksOfHeader(Text(15, u'a') + Text(sound), 0).hasGaps);
  }
  for (const TextView gap :
       {u"A;:", u"A;;B:", u"A;=B:", u"A;B=:", u"A;B=;C:", u"A;B=,C:", u"A B:", u"A;\tB:"}) {
    for (std::size_t at = 0; at < 20; ++at) {
      EXPECT_TRUE(marksOfHeader(Text(at, u'a') + Text(gap) + Text(20, u'a'), 0).hasGaps) << at;
      EXPECT_TRUE(marksOfHeader(Text(at, u'a') + Text(gap), 0).hasGaps) << at;
    }
  }
}

TEST(ScanLanes, markWhatAValueHolds) {
  const ValueMarks marks = marksOfValue(u"a&b\rX-", 0);
  EXPECT_EQ(marks.end, 3U);
  EXPECT_TRUE(marks.hasAmpersand);
  EXPECT_FALSE(marks.hasColon);
  EXPECT_FALSE(marks.hasPrefixHyphen);
  EXPECT_TRUE(marksOfValue(u"vnd-", 0).hasPrefixHyphen);
}

TEST(ScanLanes, aHyphenAtTheBeginningOfAPieceIsNoPrefix) {
  EXPECT_FALSE(marksOfValue(u"x-", 1).hasPrefixHyphen);
  EXPECT_FALSE(marksOfValue(u"x-" + Text(40, u'a'), 1).hasPrefixHyphen);
  EXPECT_TRUE(marksOfValue(u"x-", 0).hasPrefixHyphen);
  EXPECT_TRUE(marksOfValue(Text(15, u'a') + u"d-" + Text(40, u'a'), 0).hasPrefixHyphen);
}

} // namespace
} // namespace cardwright
