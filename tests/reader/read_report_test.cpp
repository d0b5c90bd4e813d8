#include "cardwright/face.h"
#include "cardwright/read_report.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

namespace cardwright {
namespace {

ReadReport reportOf(std::string_view utf8) {
  ReadReport report;
  static_cast<void>(readCards(utf8, &report));
  return report;
}

TEST(ReadReport, countsCardsAndProperties) {
  const ReadReport report = reportOf("BEGIN:VCARD\r\nFN:A\r\nTEL:1\r\nEND:VCARD\r\n"
                                     "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:B\r\nEND:VCARD\r\n");
  EXPECT_EQ(report.cards, 2U);
  // The VERSION that the first card gets is not counted.
  EXPECT_EQ(report.properties, 4U);
  EXPECT_TRUE(report.droppedLines.empty());
}

TEST(ReadReport, startsAfreshWithEachCall) {
  ReadReport report;
  static_cast<void>(readCards("junk\r\nFN:A", &report));
  static_cast<void>(readCards("FN:A", &report));
  EXPECT_EQ(report.cards, 1U);
  EXPECT_EQ(report.properties, 1U);
  EXPECT_TRUE(report.droppedLines.empty());
}

TEST(ReadReport, givesAReasonForEachDroppedLine) {
  const ReadReport report = reportOf("junk\r\nBEGIN:VCARD\r\n:no name\r\nno colon\r\nNOTE;:a\r\n"
                                     "NOTE;X=:b\r\nVERSION;VALUE=date:4.0\r\n"
                                     "X-ADDRESSBOOKSERVER-A:1;X-ADDRESSBOOKSERVER-B:2;END:VCARD;"
                                     "TEL:1\r\n");
  struct {
    DropReason reason;
    std::size_t line;
    std::string_view text;
  } const expected[] = {
      {DropReason::outsideCard, 1, "junk"},
      {DropReason::missingName, 3, ":no name"},
      {DropReason::missingColon, 4, "no colon"},
      {DropReason::emptyParameterName, 5, "NOTE;:a"},
      {DropReason::emptyParameterValue, 6, "NOTE;X=:b"},
      {DropReason::versionWithoutText, 7, "VERSION;VALUE=date:4.0"},
      {DropReason::afterEnd, 8, "TEL:1"},
  };
  ASSERT_EQ(report.droppedLines.size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    EXPECT_EQ(report.droppedLines[i].reason, expected[i].reason) << i;
    EXPECT_EQ(report.droppedLines[i].place.line, expected[i].line) << i;
    EXPECT_EQ(report.droppedLines[i].text, expected[i].text) << i;
  }
  EXPECT_EQ(report.cards, 1U);
  EXPECT_EQ(report.properties, 2U);
}

TEST(ReadReport, countsPhysicalLinesWhateverEndsThem) {
  for (const std::string_view lineEnd : {"\r\n", "\n", "\r"}) {
    std::string text;
    for (const std::string_view line : {"BEGIN:VCARD", "", "FN:A", " B", "bad", "NOTE:a", "",
                                        "worse", "  and folded", "END:VCARD"}) {
      text.append(line).append(lineEnd);
    }
    const ReadReport report = reportOf(text);
    ASSERT_EQ(report.droppedLines.size(), 2U);
    EXPECT_EQ(report.droppedLines[0].place.line, 5U);
    EXPECT_EQ(report.droppedLines[0].place.offset, text.find("bad"));
    EXPECT_EQ(report.droppedLines[0].text, "bad");
    EXPECT_EQ(report.droppedLines[1].place.line, 8U);
    EXPECT_EQ(report.droppedLines[1].place.offset, text.find("worse"));
    EXPECT_EQ(report.droppedLines[1].text, "worse and folded");
  }
  const ReadReport mixed = reportOf("a\r\r\n\n\nbad");
  ASSERT_EQ(mixed.droppedLines.size(), 2U);
  EXPECT_EQ(mixed.droppedLines[0].place, (TextPlace{0, 1}));
  EXPECT_EQ(mixed.droppedLines[1].place, (TextPlace{6, 5}));
}

TEST(ReadReport, countsOffsetsInUtf16UnitsOfTheDecodedText) {
  const ReadReport report = reportOf("\xEF\xBB\xBF"
                                     "FN:\xC3\xA9\xF0\x9F\x98\x80\r\nbad \xC3\xA9\r\n");
  ASSERT_EQ(report.droppedLines.size(), 1U);
  EXPECT_EQ(report.droppedLines[0].place, (TextPlace{8, 2}));
  EXPECT_EQ(report.droppedLines[0].text, "bad \xC3\xA9");
}

TEST(ReadReport, placesPiecesOfOneLineAtItsBeginning) {
  const ReadReport report =
      reportOf("FN:A\r\nX-ADDRESSBOOKSERVER-A;X=:1;X-ADDRESSBOOKSERVER-B;:2\r\n");
  ASSERT_EQ(report.droppedLines.size(), 2U);
  EXPECT_EQ(report.droppedLines[0].place, (TextPlace{6, 2}));
  EXPECT_EQ(report.droppedLines[1].place, (TextPlace{6, 2}));
}

TEST(ReadReport, changesNothingOfWhatIsRead) {
  const std::string_view text = "junk\r\nBEGIN:VCARD\r\nbad\r\nFN:A\r\nEND:VCARD\r\njunk";
  ReadReport report;
  EXPECT_EQ(readCards(text, &report).at(0)->description(), readCards(text).at(0)->description());
}

TEST(DropReason, hasAPhraseAndAStableNumber) {
  EXPECT_EQ(static_cast<int>(DropReason::none), 0);
  EXPECT_EQ(static_cast<int>(DropReason::outsideCard), 1);
  EXPECT_EQ(static_cast<int>(DropReason::missingName), 2);
  EXPECT_EQ(static_cast<int>(DropReason::missingColon), 3);
  EXPECT_EQ(static_cast<int>(DropReason::emptyParameterName), 4);
  EXPECT_EQ(static_cast<int>(DropReason::emptyParameterValue), 5);
  EXPECT_EQ(static_cast<int>(DropReason::versionWithoutText), 6);
  EXPECT_EQ(static_cast<int>(DropReason::afterEnd), 7);
  std::set<std::string_view> phrases;
  for (int reason = 0; reason <= 7; ++reason) {
    phrases.insert(dropReasonText(static_cast<DropReason>(reason)));
  }
  EXPECT_EQ(phrases.size(), 8U);
  EXPECT_FALSE(phrases.contains(""));
}

} // namespace
} // namespace cardwright
