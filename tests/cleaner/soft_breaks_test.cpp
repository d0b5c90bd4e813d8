#include "cardwright/vcard_cleaner.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace cardwright {
namespace {

const Text kQp = u"NOTE;ENCODING=QUOTED-PRINTABLE:";

TEST(SoftBreaks, joinsSeveralLines) {
  EXPECT_EQ(VCardCleaner::mergeQuotedPrintableSoftBreaks(
                {kQp + u"line1=", u"line2=", u"line3", u"TEL:1"}),
            (TextList{kQp + u"line1line2line3", u"TEL:1"}));
  EXPECT_EQ(VCardCleaner::mergeQuotedPrintableSoftBreaks({}), TextList());
  EXPECT_EQ(VCardCleaner::mergeQuotedPrintableSoftBreaks({kQp + u"a="}), TextList{kQp + u"a="});
}

TEST(SoftBreaks, leavesWhatIsALineOfItsOwn) {
  for (const TextView next :
       {u"END:VCARD", u"end:vcard", u"BEGIN:VCARD", u"Begin:Vcard and more", u"END:VCARD=",
        u"X-FOO:b", u"x-foo;a=b:c", u"VND-A:b", u"item1.EMAIL:c", u"TEL:1", u"tel;type=cell:1", u"",
        u" ", u"\t\u00A0\u2028", u"\r\n", u"LABEL:x", u"and: more text"}) {
    const TextList lines = {kQp + u"a=", Text(next)};
    EXPECT_EQ(VCardCleaner::mergeQuotedPrintableSoftBreaks(lines), lines)
        << testing::PrintToString(Text(next));
  }
}

TEST(SoftBreaks, joinsWhatIsNoLineOfItsOwn) {
  for (const TextView next :
       {u"b", u"  b", u"=", u"=C3=A9", u"http://example.com/a", u"https://example.com/a:b",
        u" END:VCARD is text", u"\u0301b", u"TEL;x", u"a.b.c:d"}) {
    const TextList lines = {kQp + u"a= ", Text(next)};
    EXPECT_EQ(VCardCleaner::mergeQuotedPrintableSoftBreaks(lines),
              TextList{kQp + u"a" + Text(next)})
        << testing::PrintToString(Text(next));
  }
}

TEST(SoftBreaks, joinsAnAddress) {
  EXPECT_EQ(VCardCleaner::mergeQuotedPrintableSoftBreaks(
                {kQp + u"see=", u"https://example.com/path", u"TEL:1"}),
            (TextList{kQp + u"seehttps://example.com/path", u"TEL:1"}));
}

TEST(SoftBreaks, asksForTheEncodingOfTheLineBefore) {
  for (const TextView line :
       {u"NOTE:a=", u"NOTE;ENCODING=BASE64:a=", u"NOTE:ENCODING=QUOTED-PRINTABLE:a=",
        u"NOTE;ENCODING=QUOTED-PRINTABLE=", u"NOTE;ENCODING=QUOTED-PRINTABLE:a",
        u"NOTE;X=\"ENCODING=QUOTED-PRINTABLE:a="}) {
    const TextList lines = {Text(line), u"b"};
    EXPECT_EQ(VCardCleaner::mergeQuotedPrintableSoftBreaks(lines), lines)
        << testing::PrintToString(Text(line));
  }
  // A joined line counts as the line before.
  EXPECT_EQ(VCardCleaner::mergeQuotedPrintableSoftBreaks({kQp + u"a=", u"b", u"c"}),
            (TextList{kQp + u"ab", u"c"}));
  EXPECT_EQ(VCardCleaner::mergeQuotedPrintableSoftBreaks({kQp + u"a=", u"", u"b"}),
            (TextList{kQp + u"a=", u"", u"b"}));
}

TEST(SoftBreaks, takesSignsThatStandAloneOnly) {
  // The mark joins the sign of the soft break, or the colon.
  const TextList broken = {kQp + u"a=\u0301", u"b"};
  EXPECT_EQ(VCardCleaner::mergeQuotedPrintableSoftBreaks(broken), broken);
  const TextList colonless = {kQp + u"\u0301a=", u"b"};
  EXPECT_EQ(VCardCleaner::mergeQuotedPrintableSoftBreaks(colonless), colonless);
  EXPECT_EQ(VCardCleaner::mergeQuotedPrintableSoftBreaks({kQp + u"=", u"\u0301a=", u"b"}),
            (TextList{kQp + u"\u0301a=", u"b"}));
}

TEST(SoftBreaks, keepsHeadersThatOnlyMatchWithoutRegardToCase) {
  // The Kelvin sign is its own upper case, so that the name is none of the known ones.
  const TextList lines = {kQp + u"a=", u"\u212AEY:http://example.com"};
  EXPECT_EQ(VCardCleaner::mergeQuotedPrintableSoftBreaks(lines), lines);
}

} // namespace
} // namespace cardwright
