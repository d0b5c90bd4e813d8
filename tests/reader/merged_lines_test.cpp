#include "cardwright/vcard.h"
#include "reader/merged_lines.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <optional>

namespace cardwright {
namespace {

TextList piecesOf(TextView line) {
  return VCard::candidatePropertyLinesFromLine(line);
}

TEST(MergedLines, areNothingOfNothing) {
  EXPECT_EQ(VCard::candidatePropertyLinesFromLine(std::nullopt), TextList{});
}

TEST(MergedLines, stayWholeUnlessTwoServerPropertiesAreNamed) {
  for (const TextView line :
       {TextView(u""), TextView(u" "), TextView(u"FN:A"), TextView(u"A:1;B:2;C:3"),
        TextView(u"X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:A"),
        TextView(u"X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:A;TEL:1;EMAIL:x"),
        TextView(u"X-ADDRESSBOOKSERVER:1;X-ADDRESSBOOKSERVER-A:2")}) {
    EXPECT_EQ(piecesOf(line), TextList{Text(line)});
  }
}

TEST(MergedLines, stayWholeUnlessTheyBeginWithAServerProperty) {
  for (const TextView line : {TextView(u"NOTE:X-ADDRESSBOOKSERVER-A:1;X-ADDRESSBOOKSERVER-B:2"),
                              TextView(u";X-ADDRESSBOOKSERVER-A:1;X-ADDRESSBOOKSERVER-B:2"),
                              TextView(u".X-ADDRESSBOOKSERVER-A:1;X-ADDRESSBOOKSERVER-B:2"),
                              TextView(u"a.b.X-ADDRESSBOOKSERVER-A:1;X-ADDRESSBOOKSERVER-B:2"),
                              TextView(u"a_b.X-ADDRESSBOOKSERVER-A:1;X-ADDRESSBOOKSERVER-B:2")}) {
    EXPECT_EQ(piecesOf(line), TextList{Text(line)});
  }
}

TEST(MergedLines, areCutIntoTheirProperties) {
  EXPECT_EQ(
      piecesOf(u"X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:A;X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:B"),
      (TextList{u"X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:A",
                u"X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:B"}));
  EXPECT_EQ(piecesOf(u"X-ADDRESSBOOKSERVER-MEMBER:a ; ;X-ADDRESSBOOKSERVER-MEMBER:b;;  "
                     u"X-ADDRESSBOOKSERVER-MEMBER:c ;"),
            (TextList{u"X-ADDRESSBOOKSERVER-MEMBER:a", u"X-ADDRESSBOOKSERVER-MEMBER:b",
                      u"X-ADDRESSBOOKSERVER-MEMBER:c"}));
}

TEST(MergedLines, takeGroupsParametersAndOtherPropertiesAlong) {
  EXPECT_EQ(piecesOf(u" \r\nitem1.x-addressbookserver-kind;A=b;C:group\r\nitem2.TEL;HOME:1;"
                     u"x_y.X-ADDRESSBOOKSERVER-A:2"),
            (TextList{u"item1.x-addressbookserver-kind;A=b;C:group", u"item2.TEL;HOME:1",
                      u"x_y.X-ADDRESSBOOKSERVER-A:2"}));
}

TEST(MergedLines, areCutAtLineBreaksInside) {
  EXPECT_EQ(piecesOf(u"X-ADDRESSBOOKSERVER-A:1\r\n\r\n X-ADDRESSBOOKSERVER-B:2\nTEL:3\r"),
            (TextList{u"X-ADDRESSBOOKSERVER-A:1", u"X-ADDRESSBOOKSERVER-B:2", u"TEL:3"}));
}

TEST(MergedLines, keepTextInFrontOfTheFirstHeaderOnlyWhenItHasAColon) {
  // A leading blank keeps the first name from being a header at the start of the line.
  EXPECT_EQ(piecesOf(u" X-ADDRESSBOOKSERVER-A:1;X-ADDRESSBOOKSERVER-B:2"),
            (TextList{u"X-ADDRESSBOOKSERVER-A:1", u"X-ADDRESSBOOKSERVER-B:2"}));
  EXPECT_EQ(piecesOf(u" X-ADDRESSBOOKSERVER-A 1;X-ADDRESSBOOKSERVER-B:2"),
            TextList{u"X-ADDRESSBOOKSERVER-B:2"});
}

TEST(MergedLines, keepTrailingBlanksOfPiecesOnlyWhereTheyAreNoSeparators) {
  EXPECT_EQ(piecesOf(u"X-ADDRESSBOOKSERVER-A:1\u00A0;X-ADDRESSBOOKSERVER-B:2\u00A0\t; "),
            (TextList{u"X-ADDRESSBOOKSERVER-A:1", u"X-ADDRESSBOOKSERVER-B:2"}));
  EXPECT_EQ(piecesOf(u"X-ADDRESSBOOKSERVER-A:1;\u00A0;X-ADDRESSBOOKSERVER-B:2"),
            (TextList{u"X-ADDRESSBOOKSERVER-A:1;", u"X-ADDRESSBOOKSERVER-B:2"}));
}

TEST(MergedLines, stayWholeWhenNoHeaderIsFound) {
  const TextView line = u"X-ADDRESSBOOKSERVER-A X-ADDRESSBOOKSERVER-B";
  EXPECT_EQ(piecesOf(line), TextList{Text(line)});
}

TEST(MergedLines, countNamesWithoutRegardToCase) {
  EXPECT_EQ(piecesOf(u"x-addre\u017Fsbookserver-A:1;X-ADDRE\u00DFBOOK\u017FERVER-B:2"),
            (TextList{u"x-addre\u017Fsbookserver-A:1;X-ADDRE\u00DFBOOK\u017FERVER-B:2"}));
  EXPECT_EQ(piecesOf(u"x-addre\u017Fsbookserver-A:1;X-AddressBoo\u212Aserver-B:2"),
            (TextList{u"x-addre\u017Fsbookserver-A:1", u"X-AddressBoo\u212Aserver-B:2"}));
}

TEST(MergedLines, areViewsOfTheLine) {
  const Text line = u"X-ADDRESSBOOKSERVER-A:1;X-ADDRESSBOOKSERVER-B:2";
  std::vector<TextView> pieces;
  cutMergedLine(line, pieces);
  ASSERT_EQ(pieces.size(), 2U);
  EXPECT_EQ(pieces[1].data(), line.data() + 24);
  cutMergedLine(TextView(line).substr(0, 23), pieces);
  ASSERT_EQ(pieces.size(), 1U);
  EXPECT_EQ(pieces[0].data(), line.data());
}

} // namespace
} // namespace cardwright
