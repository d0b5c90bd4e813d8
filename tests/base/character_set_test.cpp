#include "cardwright/character_set.h"
#include "support/code_point_name.h"
#include "support/seed.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace cardwright {
namespace {

constexpr char32_t kLast = 0x10FFFF;

TEST(CharacterSet, holdsNothingUntilSomethingIsPutIn) {
  const CharacterSet nothing;
  const CharacterSet everything = nothing.inverted();
  for (char32_t c = 0; c <= kLast; ++c) {
    ASSERT_FALSE(nothing.contains(c));
    ASSERT_TRUE(everything.contains(c)) << codePointName(c);
  }
}

TEST(CharacterSet, holdsBothEndsOfARange) {
  const CharacterSet set = {{u'b', u'd'}, {0x3000, 0x3002}};
  for (const char32_t inside : {U'b', U'c', U'd', U'\u3000', U'\u3001', U'\u3002'}) {
    EXPECT_TRUE(set.contains(inside)) << codePointName(inside);
  }
  for (const char32_t outside : {U'\0', U'a', U'e', U'\u2FFF', U'\u3003', U'\U0010FFFF'}) {
    EXPECT_FALSE(set.contains(outside)) << codePointName(outside);
  }
}

TEST(CharacterSet, takesRangesInAnyOrderAndOverlapping) {
  const CharacterSet set = {{0x70, 0x90}, {0x300, 0x310}, {0x60, 0x74}, {0x91, 0x91}, {0x62, 0x63}};
  for (char32_t c = 0; c < 0x400; ++c) {
    EXPECT_EQ(set.contains(c), (c >= 0x60 && c <= 0x91) || (c >= 0x300 && c <= 0x310))
        << codePointName(c);
  }
}

TEST(CharacterSet, crossesTheBorderOfAscii) {
  const CharacterSet set = {{0x7F, 0x80}};
  EXPECT_FALSE(set.contains(0x7E));
  EXPECT_TRUE(set.contains(0x7F));
  EXPECT_TRUE(set.contains(0x80));
  EXPECT_FALSE(set.contains(0x81));
}

TEST(CharacterSet, holdsSupplementaryCodePoints) {
  const CharacterSet set = {{0xFFFF, 0x10000}, {0x1F600, 0x1F64F}, {kLast, kLast}};
  EXPECT_FALSE(set.contains(0xFFFE));
  EXPECT_TRUE(set.contains(0xFFFF));
  EXPECT_TRUE(set.contains(0x10000));
  EXPECT_FALSE(set.contains(0x10001));
  EXPECT_TRUE(set.contains(0x1F600));
  EXPECT_FALSE(set.contains(0xD83D)) << "half of a pair is another code point";
  EXPECT_TRUE(set.contains(kLast));
  EXPECT_FALSE(set.inverted().contains(kLast));
  EXPECT_TRUE(set.inverted().contains(0xD83D));
}

TEST(CharacterSet, holdsSurrogatesThatWerePutIn) {
  const CharacterSet set = {{0xD800, 0xDBFF}};
  EXPECT_TRUE(set.contains(0xD800));
  EXPECT_TRUE(set.contains(0xDBFF));
  EXPECT_FALSE(set.contains(0xDC00));
}

TEST(CharacterSet, ignoresWhatIsNoCodePoint) {
  const CharacterSet wide = {{0x10FFF0, 0xFFFFFFFF}, {0x10FFF5, 0x10FFF6}};
  EXPECT_TRUE(wide.contains(0x10FFF0));
  EXPECT_TRUE(wide.contains(kLast));
  EXPECT_FALSE(wide.inverted().contains(kLast));
  EXPECT_TRUE(wide.inverted().contains(0x10FFEF));
  EXPECT_FALSE(wide.inverted().contains(u'a') == wide.contains(u'a'));

  const CharacterSet beyond = {{0x110000, 0x110010}};
  EXPECT_FALSE(beyond.contains(0x110000));
  EXPECT_FALSE(beyond.inverted().contains(0x110000));
}

TEST(CharacterSet, takesARangeWithItsEndsSwappedAsEmpty) {
  const CharacterSet set = {{0, 6}, {8, 2}};
  for (char32_t c = 0; c < 0x100; ++c) {
    EXPECT_EQ(set.contains(c), c <= 6) << codePointName(c);
    EXPECT_EQ(set.inverted().contains(c), c > 6) << codePointName(c);
  }
}

TEST(CharacterSet, isMadeOfTheUnitsOfAText) {
  const CharacterSet set = CharacterSet::fromCharacters(u"\r\nA\u00E9");
  for (const char32_t inside : {U'\r', U'\n', U'A', U'\u00E9'}) {
    EXPECT_TRUE(set.contains(inside)) << codePointName(inside);
  }
  EXPECT_FALSE(set.contains(U'a'));
  EXPECT_FALSE(CharacterSet::fromCharacters(u"").contains(u'\0'));
}

TEST(CharacterSet, agreesWithAPlainTableOfMembers) {
  std::mt19937_64 random(testSeed());
  for (int round = 0; round < 20; ++round) {
    // Crowded at the front, so that ranges touch and overlap.
    const char32_t size = round % 2 == 0 ? 300 : kLast + 1;
    std::vector<bool> members(kLast + 1);
    CharacterSet set;
    std::vector<CharacterSet::Range> ranges;
    for (int i = 0; i < 3; ++i) {
      auto first = static_cast<char32_t>(random() % size);
      auto last = static_cast<char32_t>(random() % size);
      if (first > last) {
        std::swap(first, last);
      }
      last = std::min<char32_t>(last, first + static_cast<char32_t>(random() % 40));
      ranges.push_back({first, last});
      std::fill(members.begin() + static_cast<std::ptrdiff_t>(first),
                members.begin() + static_cast<std::ptrdiff_t>(last) + 1, true);
    }
    set = {ranges[0], ranges[1], ranges[2]};
    const CharacterSet inverted = set.inverted();
    const CharacterSet again = inverted.inverted();
    for (char32_t c = 0; c <= kLast; ++c) {
      ASSERT_EQ(set.contains(c), members[c]) << codePointName(c);
      ASSERT_NE(inverted.contains(c), members[c]) << codePointName(c);
      ASSERT_EQ(again.contains(c), members[c]) << codePointName(c);
    }
  }
}

} // namespace
} // namespace cardwright
