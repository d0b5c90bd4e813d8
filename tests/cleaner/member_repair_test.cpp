#include "cardwright/vcard_cleaner.h"

#include <gtest/gtest.h>

#include <vector>

namespace cardwright {
namespace {

struct Row {
  Text value;
  TextList lines;
};

void expectRows(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(VCardCleaner::splitMemberNumericEntitiesWithHeader(u"H", row.value), row.lines)
        << testing::PrintToString(row.value);
  }
}

TEST(MemberRepair, cutsAtEntitiesOfLineBreaks) {
  EXPECT_EQ(VCardCleaner::splitMemberNumericEntitiesWithHeader(u"X-ADDRESSBOOKSERVER-MEMBER",
                                                               u"urn:uuid:1&#13;&#10;urn:uuid:2"),
            (TextList{u"X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1",
                      u"X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:2"}));
  expectRows({{u"a&#10;b&#13;c&#13;&#10;d", {u"H:a", u"H:b", u"H:c", u"H:d"}},
              {u"&#10;a&#13;&#13;&#10;&#10;&#13;b&#13;", {u"H:a", u"H:b"}},
              {u"&#1&#13;0;", {u"H:&#1", u"H:0;"}},
              {u"&#&#10;13;", {u"H:&#", u"H:13;"}},
              {u"&#xA;a&#010;b&#12;c&#1", {u"H:&#xA;a&#010;b&#12;c&#1"}}});
}

TEST(MemberRepair, trimsPieces) {
  expectRows({{u" a \t&#10;\u00A0b\u2028\r\n&#10; &#10;", {u"H:a", u"H:b"}},
              {u" \u0301&#10;a", {u"H:\u0301", u"H:a"}}});
}

TEST(MemberRepair, keepsWhatIsOnlyAValue) {
  expectRows(
      {{u"urn:uuid:1", {u"H:urn:uuid:1"}}, {u"", {u"H:"}}, {u"  ", {u"H:  "}}, {u" a ", {u"H:a"}}});
}

TEST(MemberRepair, leavesNothingOfLineBreaksAlone) {
  expectRows({{u"&#10;&#10;", {}}, {u"&#13;", {}}, {u" &#13;&#10; ", {}}});
}

TEST(MemberRepair, keepsGluedLinesAsTheyAre) {
  expectRows({{u"urn:uuid:1&#10;TEL:123", {u"H:urn:uuid:1", u"TEL:123"}},
              {u"a&#10;item1.tel;type=cell:1", {u"H:a", u"item1.tel;type=cell:1"}},
              {u"a&#10;x-foo:1&#10;vnd-foo:2", {u"H:a", u"x-foo:1", u"vnd-foo:2"}},
              {u"a&#10;urn:b", {u"H:a", u"H:urn:b"}},
              {u"a&#10;TEL", {u"H:a", u"H:TEL"}},
              {u"a&#10;\"TEL:1", {u"H:a", u"H:\"TEL:1"}},
              {u"TEL:1", {u"TEL:1"}}});
}

TEST(MemberRepair, cutsGluedLinesThatAreMerged) {
  expectRows({{u"a&#10;TEL:1EMAIL:x", {u"H:a", u"TEL:1", u"EMAIL:x"}},
              {u"a&#10;TEL:1 EMAIL:x&#10;b", {u"H:a", u"TEL:1 EMAIL:x", u"H:b"}}});
}

} // namespace
} // namespace cardwright
