#include "base/whitespace.h"
#include "support/code_point_name.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

namespace cardwright {
namespace {

bool isOfCategory(char32_t codePoint, std::uint32_t mask) {
  return (U_MASK(u_charType(static_cast<UChar32>(codePoint))) & mask) != 0;
}

TEST(Whitespace, isTheSpaceSeparatorsAndTab) {
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    const bool expected = c == 0x09 || isOfCategory(c, U_GC_ZS_MASK);
    ASSERT_EQ(whitespaceCharacterSet().contains(c), expected) << codePointName(c);
    if (c < 0x10000) {
      ASSERT_EQ(isWhitespace(static_cast<char16_t>(c)), expected) << codePointName(c);
    }
  }
}

TEST(Whitespace, withNewlinesIsAllSeparatorsAndTheLineControls) {
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    const bool expected =
        c == 0x09 || (c >= 0x0A && c <= 0x0D) || c == 0x85 || isOfCategory(c, U_GC_Z_MASK);
    ASSERT_EQ(whitespaceAndNewlineCharacterSet().contains(c), expected) << codePointName(c);
    if (c < 0x10000) {
      ASSERT_EQ(isWhitespaceOrNewline(static_cast<char16_t>(c)), expected) << codePointName(c);
    }
  }
}

TEST(Trimmed, takesOffBothEndsAndNothingElse) {
  struct Row {
    TextView text;
    TextView withoutBlanks;
    TextView withoutBlanksAndNewlines;
  };
  constexpr Row kRows[] = {
      {u"", u"", u""},
      {u"a", u"a", u"a"},
      {u" \t\u3000", u"", u""},
      {u" a b\t", u"a b", u"a b"},
      {u"\r\n a \u2028", u"\r\n a \u2028", u"a"},
      {u"\u00A0\n\u1680", u"\n", u""},
      {u"\v\f\u0085a\u2029", u"\v\f\u0085a\u2029", u"a"},
      {u"\u200Ba\uFEFF", u"\u200Ba\uFEFF", u"\u200Ba\uFEFF"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(trimWhitespace(row.text), row.withoutBlanks);
    EXPECT_EQ(trimWhitespaceAndNewlines(row.text), row.withoutBlanksAndNewlines);
  }
}

TEST(Trimmed, givesAViewOfTheTextItself) {
  const Text text = u"  ab ";
  EXPECT_EQ(trimWhitespace(text).data(), text.data() + 2);
}

} // namespace
} // namespace cardwright
