#include "cardwright/vcard_cleaner.h"
#include "cleaner/unfolding.h"

#include <gtest/gtest.h>

#include <vector>

namespace cardwright {
namespace {

struct Row {
  Text text;
  TextList lines;
};

void expectRows(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(VCardCleaner::unfoldLines(row.text), row.lines) << testing::PrintToString(row.text);
  }
}

const Text kQp = u"NOTE;ENCODING=QUOTED-PRINTABLE:";

TEST(Unfolding, takesAllLineEnds) {
  expectRows({{u"A:1\r\n B\rC:2\nD:3\r\n\r\n", {u"A:1B", u"C:2", u"D:3"}},
              {u"a\r\rb", {u"a", u"", u"b"}},
              {u"a\r\n\nb\n\rc", {u"a", u"", u"b", u"", u"c"}},
              {u"a\u2028b\u0085c\vd", {u"a\u2028b\u0085c\vd"}}});
}

TEST(Unfolding, continuesAnEmptyLine) {
  expectRows({{u"NOTE:a\n\n b", {u"NOTE:a", u"b"}}, {u"\n b", {u"b"}}});
}

TEST(Unfolding, removesOneBlank) {
  expectRows({{u"NOTE:x\n\t\ty", {u"NOTE:x\ty"}},
              {u"NOTE:x\n  y\n z", {u"NOTE:x yz"}},
              {u" a\nb", {u"a", u"b"}},
              {u"\ta\n b", {u"ab"}},
              {u"a\n \n b", {u"ab"}}});
}

TEST(Unfolding, dropsEmptyLinesAtTheEndOnly) {
  expectRows({{u"", {}},
              {u"\r\n\n\r", {}},
              {u" ", {}},
              {u"\n \n\t\n", {}},
              {u"a\n\n \n\n", {u"a"}},
              {u"\n\na\n\nb\n\n", {u"", u"", u"a", u"", u"b"}},
              {u"a\n\n  \n", {u"a", u" "}},
              {u"a\n\n \n b\n", {u"a", u"b"}},
              {u"a\n\n\n \n x", {u"a", u"", u"x"}}});
}

TEST(Unfolding, takesSoftBreaksOutOfQuotedPrintableOnly) {
  expectRows(
      {{kQp + u"ab=\n cd", {kQp + u"abcd"}},
       {u"NOTE:ab=\n cd", {u"NOTE:ab=cd"}},
       {kQp + u"ab= \t\n cd", {kQp + u"abcd"}},
       {kQp + u"ab==\n cd", {kQp + u"ab=cd"}},
       {kQp + u"ab=\n c=\n d=\n", {kQp + u"abcd="}},
       {kQp + u"=\n cd", {kQp + u"cd"}},
       {kQp + u"ab=\n \n cd", {kQp + u"abcd"}},
       {u"note;encoding=quoted-printable:ab=\n cd", {u"note;encoding=quoted-printable:abcd"}},
       {u"NOTE;X=\"ENCODING=QUOTED-PRINTABLE:\":a=\n b",
        {u"NOTE;X=\"ENCODING=QUOTED-PRINTABLE:\":ab"}},
       {u"NOTE;X=\"ENCODING=QUOTED-PRINTABLE:=\n b", // no colon outside quotes
        {u"NOTE;X=\"ENCODING=QUOTED-PRINTABLE:=b"}},
       {u"NOTE:ENCODING=QUOTED-PRINTABLE:a=\n b", {u"NOTE:ENCODING=QUOTED-PRINTABLE:a=b"}}});
}

TEST(Unfolding, findsTheEncodingInFoldedHeaders) {
  expectRows(
      {{u"NOTE;ENCODING=\n QUOTED-PRINTABLE:a=\n b", {kQp + u"ab"}},
       {u"NOTE;ENCODING=QUOTED-PRINTABLE\n :a=\n b", {kQp + u"ab"}},
       {u"NOTE;A=\n \"x:y=\n \";ENCODING=QUOTED-PRINTABLE:a=\n b",
        {u"NOTE;A=\"x:y=\";ENCODING=QUOTED-PRINTABLE:ab"}},
       // The encoding that a value speaks of does not count, whatever was asked before.
       {u"NOTE:=\n ;ENCODING=QUOTED-PRINTABLE:=\n b", {u"NOTE:=;ENCODING=QUOTED-PRINTABLE:=b"}}});
}

TEST(Unfolding, takesABlankWithAMarkForContent) {
  expectRows({{u"NOTE:a\n \u0301b", {u"NOTE:a", u" \u0301b"}},
              {u"NOTE:a\n  \u0301b", {u"NOTE:a \u0301b"}},
              // Nothing joins a tab.
              {u"NOTE:a\n\t\u0301b", {u"NOTE:a\u0301b"}},
              {u" \u0301a", {u" \u0301a"}}});
}

TEST(Unfolding, looksAgainWhenAMarkSwallowsTheColon) {
  // Behind the soft break the mark joins the colon, which is no colon any more.
  expectRows({{kQp + u"=\n\t\u0301a=\n b", {kQp + u"\u0301a=b"}},
              {kQp + u"=\n\t\u0301a:c=\n b", {kQp + u"\u0301a:cb"}}});
}

TEST(Unfolding, keepsLoneSurrogates) {
  const Text high(1, char16_t{0xD83D});
  const Text low(1, char16_t{0xDE00});
  expectRows({{high + u"\n " + low, {high + low}}, {low + u"\r" + high, {low, high}}});
}

TEST(Unfolder, tellsWhereLinesStand) {
  const Text text = u"A:1\r\n B\r\n\r\nC:2\r\n";
  Unfolder unfolder(text);
  UnfoldedLine line;
  Text buffer;
  ASSERT_TRUE(unfolder.next(line, buffer));
  EXPECT_EQ(line.begin, 0U);
  EXPECT_EQ(line.end, 7U);
  EXPECT_TRUE(line.isJoined);
  ASSERT_TRUE(unfolder.next(line, buffer));
  EXPECT_EQ(line.begin, 9U);
  EXPECT_EQ(line.end, 9U);
  ASSERT_TRUE(unfolder.next(line, buffer));
  EXPECT_EQ(line.begin, 11U);
  EXPECT_EQ(line.end, 14U);
  EXPECT_EQ(line.text.data(), text.data() + 11);
  EXPECT_FALSE(line.isJoined);
  EXPECT_FALSE(unfolder.next(line, buffer));
}

} // namespace
} // namespace cardwright
