#include "serve/comparison.h"

#include <gtest/gtest.h>

namespace cardwright::tool {
namespace {

Text whole(const Excerpt& excerpt) {
  return excerpt.lead + excerpt.changed + excerpt.trail;
}

TEST(Comparison, partsWhatIsAlikeFromWhatIsNot) {
  struct Row {
    Text before;
    Text after;
    Excerpt first;
    Excerpt second;
  };
  const Row rows[] = {
      {u"", u"", {u"", u"", u""}, {u"", u"", u""}},
      {u"abc", u"abc", {u"abc", u"", u""}, {u"abc", u"", u""}},
      {u"abc", u"axc", {u"a", u"b", u"c"}, {u"a", u"x", u"c"}},
      {u"ab", u"a\nb", {u"a", u"", u"b"}, {u"a", u"\n", u"b"}},
      {u"aa", u"aaa", {u"aa", u"", u""}, {u"aa", u"a", u""}},
      {u"abc", u"", {u"", u"abc", u""}, {u"", u"", u""}},
      // Halves of characters are never parted.
      {u"a\U0001F600b", u"a\U0001F601b", {u"a", u"\U0001F600", u"b"}, {u"a", u"\U0001F601", u"b"}},
      {u"\U0001F600", u"\U00010600", {u"", u"\U0001F600", u""}, {u"", u"\U00010600", u""}},
  };
  for (const Row& row : rows) {
    const Comparison comparison = compared(row.before, row.after);
    EXPECT_EQ(comparison.before.lead, row.first.lead);
    EXPECT_EQ(comparison.before.changed, row.first.changed);
    EXPECT_EQ(comparison.before.trail, row.first.trail);
    EXPECT_EQ(comparison.after.lead, row.second.lead);
    EXPECT_EQ(comparison.after.changed, row.second.changed);
    EXPECT_EQ(comparison.after.trail, row.second.trail);
  }
}

TEST(Comparison, keepsALittleOfWhatIsAlike) {
  const Text before = Text(5000, u'a') + u"X" + Text(5000, u'b');
  const Text after = Text(5000, u'a') + Text(9000, u'y') + Text(5000, u'b');
  const Comparison comparison = compared(before, after);
  EXPECT_EQ(whole(comparison.before), u"…" + Text(120, u'a') + u"X" + Text(120, u'b') + u"…");
  EXPECT_EQ(comparison.after.changed, Text(2000, u'y') + u"…");
}

TEST(Comparison, cutsBetweenCharacters) {
  Text faces;
  for (int count = 0; count < 500; ++count) {
    faces += u"\U0001F600";
  }
  for (std::size_t shift = 0; shift < 2; ++shift) {
    const Text text = Text(shift, u'a') + faces;
    const Comparison comparison = compared(text + u"1" + faces, text + u"2" + faces);
    const Text lead = comparison.before.lead;
    ASSERT_GE(lead.size(), 100U);
    EXPECT_EQ(lead.front(), u'…');
    EXPECT_EQ(lead.substr(1, 2), u"\U0001F600");
    const Text cut = beginningOf(text, 101);
    EXPECT_EQ(cut.back(), u'…');
    EXPECT_EQ(cut.substr(cut.size() - 3, 2), u"\U0001F600");
  }
}

} // namespace
} // namespace cardwright::tool
