#include "support/text_printer.h"
#include "text/display_width.h"

#include <gtest/gtest.h>

namespace cardwright::tool {
namespace {

struct Row {
  TextView text;
  std::size_t columns;
};

TEST(DisplayWidth, countsColumnsOfWhatReadersSeeAsOneCharacter) {
  constexpr Row kRows[] = {
      {u"", 0},
      {u"Ada Lovelace", 12},
      {u"Zoë", 3},
      {u"Zoe\u0308", 3},                 // the same with a combining mark
      {u"\u0301", 0},                    // a mark by itself
      {u"Нина", 4},                      //
      {u"Ελένη", 5},                     //
      {u"ليلى", 4},                      //
      {u"לֵאָה", 3},                       // points take no column
      {u"陳美玲", 6},                    //
      {u"高瀬 結衣", 9},                 //
      {u"ｱｲｳ", 3},                       // half width
      {u"ＡＢＣ", 6},                    // full width
      {u"김하늘", 6},                    //
      {u"\u1100\u1161\u11A8", 2},        // one syllable, spelt out
      {u"अनन्या", 5},                     // the virama takes none, the vowel sign one
      {u"ศิริพร", 4},                      // vowels above the line take none
      {u"🦊", 2},                      //
      {u"👩🏽‍🚀", 2},           // joined: a woman, a colour and a rocket
      {u"👨‍👩‍👧‍👦", 2}, //
      {u"🏳️‍🌈", 2},            //
      {u"🇮🇪", 2},                        // two letters make a flag
      {u"❤️", 2},                    // as an emoji
      {u"❤", 1},                         // as text
      {u"1️⃣", 2},                   // keycap
      {u"a\u200Bb", 2},                  // a blank of no width
      {u"co\u00ADop", 5},                // a soft hyphen is shown when it breaks the line
      {u"\u4E00\u0301", 2},              //
  };
  DisplayWidth width;
  for (const Row& row : kRows) {
    EXPECT_EQ(width.columns(row.text), row.columns) << utf8FromText(row.text);
  }
}

TEST(DisplayWidth, takesLoneSurrogatesForOneColumn) {
  DisplayWidth width;
  EXPECT_EQ(width.columns(Text{u'a', char16_t{0xD800}, u'b'}), 3U);
}

TEST(DisplayWidth, countsLongTextsPieceByPiece) {
  DisplayWidth width;
  EXPECT_EQ(width.columns(Text(3'000'000, u'名')), 6'000'000U);
}

TEST(IsWideThroughout, tellsEastAsianTextFromMixedText) {
  EXPECT_TRUE(isWideThroughout(u"東京都"));
  EXPECT_TRUE(isWideThroughout(u"김"));
  EXPECT_TRUE(isWideThroughout(u"𠮷野"));
  EXPECT_FALSE(isWideThroughout(u""));
  EXPECT_FALSE(isWideThroughout(u"東京 2"));
  EXPECT_FALSE(isWideThroughout(u"Tokyo"));
}

} // namespace
} // namespace cardwright::tool
