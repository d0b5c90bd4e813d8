#include "support/text_printer.h"
#include "text/word_list.h"
#include "text/words.h"

#include <gtest/gtest.h>

namespace cardwright::tool {
namespace {

TEST(WordList, keepsEachWordOnce) {
  WordList words;
  for (const TextView word : {u"Home", u"", u"work", u"HOME"}) {
    words.add(word);
  }
  EXPECT_EQ(words.words(), (TextList{u"Home", u"work"}));
}

TEST(WordList, endsInAnEllipsisWhenThereAreTooMany) {
  WordList words;
  for (int number = 0; number < 1000; ++number) {
    words.add(numberText(number));
  }
  EXPECT_EQ(words.words().size(), WordList::kMost + 1);
  EXPECT_EQ(words.words().front(), u"0");
  EXPECT_EQ(words.words().back(), u"…");
}

TEST(Shortened, cutsBetweenCharacters) {
  EXPECT_EQ(shortened(Text(200, u'a')), Text(200, u'a'));
  EXPECT_EQ(shortened(Text(201, u'a')), Text(200, u'a') + u"…");
  EXPECT_EQ(shortened(Text(199, u'a') + u"😀b"), Text(199, u'a') + u"…");
}

TEST(Words, compareWithoutRegardToAsciiCase) {
  EXPECT_TRUE(equalsIgnoringCase(u"Home", u"hOME"));
  EXPECT_FALSE(equalsIgnoringCase(u"Home", u"Homes"));
  EXPECT_FALSE(equalsIgnoringCase(u"[", u"{"));
  EXPECT_TRUE(startsWithIgnoringCase(u"Data:x", u"data:"));
  EXPECT_FALSE(startsWithIgnoringCase(u"dat", u"data:"));
  EXPECT_EQ(trimmed(u" \t a b\r\n"), u"a b");
  EXPECT_EQ(trimmed(u" "), u"");
  EXPECT_EQ(joined({u"a", u"", u"b"}, u", "), u"a, b");
  EXPECT_EQ(paddedNumber(7, 2), u"07");
  EXPECT_EQ(paddedNumber(-7, 4), u"-7");
}

} // namespace
} // namespace cardwright::tool
