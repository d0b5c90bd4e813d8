#include "cardwright/vcard_cleaner.h"

#include <gtest/gtest.h>

#include <vector>

namespace cardwright {
namespace {

struct Row {
  TextList pieces;
  TextList repaired;
};

void expectRows(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(VCardCleaner::postProcessSegmentsAfterSplit(row.pieces), row.repaired)
        << testing::PrintToString(row.pieces);
  }
}

void expectUntouched(const std::vector<TextList>& rows) {
  for (const TextList& pieces : rows) {
    EXPECT_EQ(VCardCleaner::postProcessSegmentsAfterSplit(pieces), pieces)
        << testing::PrintToString(pieces);
  }
}

TEST(SegmentRepair, givesValuesBackToEmptyHeaders) {
  expectRows(
      {{{u"item1.TEL:", u"555item2.EMAIL:x"}, {u"item1.TEL:555", u"item2.EMAIL:x"}},
       {{u"TEL:", u"555ITEM2.EMAIL:x"}, {u"TEL:555", u"ITEM2.EMAIL:x"}},
       {{u"TEL:", u"1item1.TEL:", u"2item2.TEL:3"}, {u"TEL:1", u"item1.TEL:2", u"item2.TEL:3"}}});
}

TEST(SegmentRepair, keepsValuesThatBelongWhereTheyAre) {
  expectUntouched({{},
                   {u"TEL:1"},
                   {u"TEL:1", u"555item2.EMAIL:x"},
                   {u"TEL:", u"item2.EMAIL:x"},
                   {u"TEL:", u"555item12345.EMAIL:x"},
                   {u"TEL:", u"555item2.UNKNOWN:x"},
                   {u"TEL:", u"555item2.EMAIL"},
                   {u"TEL;A=\":", u"555item2.EMAIL:x"},
                   {u"TEL", u"555item2.EMAIL:x"}});
}

TEST(SegmentRepair, dropsTheBeginningOfTheNextName) {
  expectRows({{{u"NOTE:helloX-AB", u"X-ABLABEL:x"}, {u"NOTE:hello", u"X-ABLABEL:x"}},
              {{u"TEL:1x-ab", u"x-ablabel:x"}, {u"TEL:1", u"x-ablabel:x"}},
              {{u"TEL:1X-ABLABEL", u"X-ABLABEL;A=b:x"}, {u"TEL:1", u"X-ABLABEL;A=b:x"}},
              {{u"TEL:X-A", u"X-A:x"}, {u"TEL:", u"X-A:x"}},
              {{u"TEL:1X-A", u"X-ABX-A", u"X-AB:x"}, {u"TEL:1X-A", u"X-ABX-A", u"X-AB:x"}},
              {{u"TEL:1X-A", u"X-AB:2X-C", u"X-CD:3"}, {u"TEL:1", u"X-AB:2", u"X-CD:3"}}});
}

TEST(SegmentRepair, keepsOtherNamesAtTheEnd) {
  expectUntouched({{u"TEL:1X-AC", u"X-ABLABEL:x"},
                   {u"TEL:1X-", u"X-ABLABEL:x"},
                   {u"TEL:1X-AB ", u"X-ABLABEL:x"},
                   {u"TEL:1VND-A", u"VND-AB:x"},
                   {u"TEL:1X-AB", u"item1.X-ABLABEL:x"},
                   {u"TEL:1X-AB", u"X-ABLABEL"},
                   {u"TEL;A=\"1X-AB", u"X-ABLABEL:x"},
                   // The name goes on from the first prefix to the end.
                   {u"TEL:1X-ABX-AB", u"X-ABLABEL:x"}});
}

TEST(SegmentRepair, repairsAPieceByBothRules) {
  expectRows(
      {{{u"TEL:", u"5X-Aitem1.EMAIL:x"}, {u"TEL:5X-A", u"item1.EMAIL:x"}},
       {{u"TEL:", u"5item1.EMAIL:xX-A", u"X-AB:y"}, {u"TEL:5", u"item1.EMAIL:x", u"X-AB:y"}}});
}

TEST(SegmentRepair, writesLineBreaksOfNotesAsEscapes) {
  expectRows(
      {{{u"NOTE:a&#13;&#10;b&#10;c&#13;d"}, {u"NOTE:a\\nb\\nc\\nd"}},
       {{u"item1.note;a=b:a&#13;b", u"TEL:1&#13;2"}, {u"item1.note;a=b:a\\nb", u"TEL:1&#13;2"}},
       // The header stays as it is.
       {{u"NOTE;X=\"&#13;\":a&#13;b"}, {u"NOTE;X=\"&#13;\":a\\nb"}},
       {{u"NOTE&#13;a"}, {u"NOTE&#13;a"}}});
}

TEST(SegmentRepair, splitsMembers) {
  expectRows(
      {{{u"TEL:1", u"X-ADDRESSBOOKSERVER-MEMBER;A=b:urn:uuid:1&#13;&#10;urn:uuid:2", u"FN:x"},
        {u"TEL:1", u"X-ADDRESSBOOKSERVER-MEMBER;A=b:urn:uuid:1",
         u"X-ADDRESSBOOKSERVER-MEMBER;A=b:urn:uuid:2", u"FN:x"}},
       {{u"X-ADDRESSBOOKSERVER-MEMBER:&#10;"}, {}}});
}

TEST(SegmentRepair, givesValuesBackBeforeTrustedNamesOnly) {
  expectRows({{{u"item1.TEL:", u"555item2.X-ABLABEL:x"}, {u"item1.TEL:555", u"item2.X-ABLABEL:x"}},
              {{u"item1.TEL:", u"555item2.X-CUSTOM:x"}, {u"item1.TEL:", u"555item2.X-CUSTOM:x"}}});
}

} // namespace
} // namespace cardwright
