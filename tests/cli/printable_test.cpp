#include "support/text_printer.h"
#include "text/printable.h"

#include <gtest/gtest.h>

namespace cardwright::tool {
namespace {

TEST(Printable, leavesOrdinaryTextAlone) {
  EXPECT_EQ(printable(u""), u"");
  EXPECT_EQ(printable(u"Zoë, 陳 👩🏽‍🚀 \u200F"), u"Zoë, 陳 👩🏽‍🚀 \u200F");
}

TEST(Printable, showsWhatCouldSteerTheTerminal) {
  EXPECT_EQ(printable(u"\u001B[31mred"), u"␛[31mred");
  EXPECT_EQ(printable(TextView(u"\0\a\b\r\n\v", 6)), u"␀␇␈␍␊␋");
  EXPECT_EQ(printable(u"\u007F"), u"␡");
  EXPECT_EQ(printable(u"\u009B31m"), u"<U+009B>31m");
  EXPECT_EQ(printable(u"\u0085"), u"<U+0085>");
}

TEST(Printable, showsWhatTurnsTextAround) {
  EXPECT_EQ(printable(u"\u202E555\u202C"), u"<U+202E>555<U+202C>");
  EXPECT_EQ(printable(u"\u2066x\u2069"), u"<U+2066>x<U+2069>");
  EXPECT_EQ(printable(u"\u2028\uFEFF"), u"<U+2028><U+FEFF>");
}

TEST(Printable, makesABlankOfATab) {
  EXPECT_EQ(printable(u"a\tb"), u"a b");
}

TEST(Printable, leavesNoControlCharacterInAnyText) {
  for (char32_t unit = 0; unit < 0x10000; ++unit) {
    const Text shown = printable(Text(1, static_cast<char16_t>(unit)));
    for (const char16_t left : shown) {
      ASSERT_FALSE(left < 0x20 || (left >= 0x7F && left < 0xA0)) << std::hex << unsigned(unit);
    }
  }
}

TEST(LinesOf, endsLinesAtEveryKindOfLineEnd) {
  EXPECT_EQ(linesOf(u"a\r\nb\rc\nd\u2028e\u2029f\u0085g"),
            (std::vector<TextView>{u"a", u"b", u"c", u"d", u"e", u"f", u"g"}));
  EXPECT_EQ(linesOf(u"a\n\nb"), (std::vector<TextView>{u"a", u"", u"b"}));
  EXPECT_EQ(linesOf(u"a\n"), (std::vector<TextView>{u"a"}));
  EXPECT_EQ(linesOf(u""), (std::vector<TextView>{u""}));
  EXPECT_EQ(linesOf(u"\n"), (std::vector<TextView>{u""}));
}

} // namespace
} // namespace cardwright::tool
