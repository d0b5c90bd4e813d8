#include "cardwright/check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace cardwright {
namespace {

/// Lines of a card of version 3.0 with "@" where the finding should point. Characters and columns
/// are the same in those without a column of their own.
struct Row {
  const char* code;
  std::string lines;
  std::size_t column = 0;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.code << " in " << testing::PrintToString(row.lines);
}

class CheckPlaces : public testing::TestWithParam<Row> {};

std::string cardOf(const std::string& lines, std::string_view lineEnd) {
  std::string text;
  for (const char byte : "BEGIN:VCARD\nVERSION:3.0\nFN:x\nN:x;;;;\n" + lines + "\nEND:VCARD\n") {
    byte == '\n' ? text.append(lineEnd) : text.append(1, byte);
  }
  return text;
}

TEST_P(CheckPlaces, areWhereTheMistakeIs) {
  const Row& row = GetParam();
  for (const std::string_view lineEnd : {"\n", "\r\n", "\r"}) {
    std::string text = cardOf(row.lines, lineEnd);
    const std::size_t mark = text.find('@');
    ASSERT_NE(mark, std::string::npos);
    text.erase(mark, 1);
    std::size_t line = 1;
    std::size_t begin = 0;
    for (std::size_t at = text.find(lineEnd); at < mark; at = text.find(lineEnd, at + 1)) {
      ++line;
      begin = at + lineEnd.size();
    }
    const auto findings = checkText(text);
    const auto found = std::find_if(findings.begin(), findings.end(),
                                    [&row](const Finding& one) { return one.code == row.code; });
    ASSERT_NE(found, findings.end());
    EXPECT_EQ(found->place.line, line);
    EXPECT_EQ(found->column, row.column != 0 ? row.column : mark - begin + 1);
  }
}

const Row kRows[] = {
    // Names
    {"unknown-property", "@FOO:1"},
    {"unknown-property", "item1.@FOO:1"},
    {"unknown-property", "@F\n OO:1"},
    {"other-version-property", "item1.@KIND;TYPE=a:b"},
    {"unknown-parameter", "TEL;TYPE=home;@FOO=b:1"},
    {"unknown-parameter", "TEL;TYPE=home;\n @FOO=b:1"},
    {"unknown-parameter", "TEL;TYPE=ho\n me;@F\n OO=b:1"},
    {"other-version-parameter", "TEL;TYPE=\"a:b;c\";@PREF=1:1"},
    {"other-version-type", "TEL;TYPE=home,cell,@textphone:1"},
    {"other-version-type", "TEL;TYPE=home;TYPE=\"@textphone\":1"},
    {"other-version-type", "TEL;home;@textphone:1"},
    {"other-version-type", "TEL;TYPE=home,\n\t@textphone:1"},
    {"other-version-encoding", "PHOTO;ENCODING=@BASE64:AAAA"},
    {"unknown-encoding", "PHOTO;TYPE=PNG;ENCODING=@hex:AAAA"},
    {"other-version-value", "X-A;VALUE=@integer:1"},
    // Values
    {"bad-date", "BDAY;VALUE=date:@someday"},
    {"bad-date", "BDAY:  @someday"},
    {"bad-date", "BDAY:\n @someday"},
    {"bad-offset", "TZ:@EST"},
    {"bad-position", "GEO:@here"},
    {"bad-base64", "PHOTO;ENCODING=b:AA@!AAA"},
    {"bad-base64", "PHOTO;ENCODING=b:AAAA\n A@-AA"},
    {"bad-base64", "PHOTO;ENCODING=b:AAAA\n A@A"},
    {"bad-base64", "PHOTO;ENCODING=b:AA@=A"},
    {"bad-base64", "PHOTO;VALUE=uri:data:image/png;base64,AA@*A"},
    {"bad-quoted-printable", "NOTE;ENCODING=QUOTED-PRINTABLE:a=41@=ZZ"},
    {"bad-quoted-printable", "NOTE;ENCODING=QUOTED-PRINTABLE:=41=\n b@=4"},
    {"bad-quoted-printable", "NOTE;ENCODING=QUOTED-PRINTABLE:=41=\n @=4x"},
    {"bad-date", "BDAY;X-A=\xC3\xA9\xC3\xA9:@someday", 13},
    {"bad-date", "BDAY;X-A=e\xCC\x81\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7:@someday", 13},
    {"bad-date", "BDAY;X-A=&#65;:@someday"},
    {"lost-member", "X-ADDRESSBOOKSERVER-MEMBER:@urn:uuid:nobody"},
    {"equal-uid", "UID:a\nEND:VCARD\nBEGIN:VCARD\nVERSION:3.0\nFN:y\nN:y;;;;\nUID:@a"},
    // Counts and frames
    {"too-many", "UID:a\n@UID:b"},
    {"nested-card", "@BEGIN:VCARD"},
    {"outside-card", "NOTE:a\nEND:VCARD\n@hello\nBEGIN:VCARD\nVERSION:4.0\nFN:a"},
    {"no-colon", "@no colon"},
    {"no-name", "@:b"},
    {"empty-parameter-name", "NOTE;LANGUAGE=de;@:b"},
    {"empty-parameter-value", "NOTE;X-A=@:b"},
    // Damage
    {"merged-properties", "TEL:+15550100@EMAIL:b"},
    {"merged-properties", "TEL:+1555\n 0100@EMAIL:b"},
    {"merged-properties", "TEL:+15550100\n @EMAIL:b"},
    {"glued-note", "NOTE:b@X-ABLABEL:c"},
    {"glued-note", "NOTE:long\n er@X-ABLABEL:c"},
    {"note-entities", "NOTE:b@&#13;&#10;c"},
    {"member-entities", "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:m@&#13;&#10;"
                        "X-ADDRESSBOOKSERVER-MEMBER:mailto:b@c"},
    {"torn-fragment", "ADR:;;Main Street@X-ABLABEL"},
    {"repeated-property", "@X-CREATED:20240203T101112Z\nX-CREATED:20240203T101112Z"},
    {"soft-break", "NOTE;ENCODING=QUOTED-PRINTABLE:a@=\nb"},
    // In and behind lines that are repaired
    {"bad-date", "TEL:+15550100EMAIL:b\nBDAY:@someday"},
    {"bad-date", "TEL:+15550100EMAIL:b\nBDAY:\n @someday\nNOTE:c"},
    {"unknown-parameter", "TEL:+15550100EMAIL;@FOO=c:b"},
    {"bad-date", "NOTE:a&#13;&#10;b\nBDAY;X-A=c:@someday"},
    {"bad-quoted-printable", "NOTE;ENCODING=QUOTED-PRINTABLE:a=\nb@=ZZ"},
};

INSTANTIATE_TEST_SUITE_P(CheckText, CheckPlaces, testing::ValuesIn(kRows));

TEST(CheckText, pointsAtDroppedBytesAndDoubledLineEnds) {
  const auto bytes = checkText("BEGIN:VCARD\r\nVERSION:4.0\r\nFN:\xC3\xA9"
                               "a\xFF\xFE\r\nEND:VCARD\r\n",
                               {"UTF-8"});
  ASSERT_EQ(bytes.size(), 1U);
  EXPECT_EQ(bytes[0].place.line, 3U);
  EXPECT_EQ(bytes[0].column, 6U);
  const auto ends = checkText("BEGIN:VCARD\r\r\nVERSION:4.0\r\r\nFN:a\r\r\nBDAY;X-A=b:x\r\r\nEND:"
                              "VCARD\r\r\n");
  ASSERT_EQ(ends.size(), 2U);
  EXPECT_EQ(ends[0].code, "separators");
  EXPECT_EQ(ends[0].place.line, 1U);
  EXPECT_EQ(ends[0].column, 12U);
  EXPECT_EQ(ends[1].code, "bad-date");
  EXPECT_EQ(ends[1].column, 12U);
}

TEST(CheckText, pointsIntoTextsOfOtherEncodings) {
  const std::u16string text = u"\uFEFFBEGIN:VCARD\r\nVERSION:4.0\r\nFN:\u00E9\r\nBDAY:x\r\nEND:"
                              u"VCARD\r\n";
  std::string bytes;
  for (const char16_t unit : text) {
    bytes.push_back(static_cast<char>(unit & 0xFFU));
    bytes.push_back(static_cast<char>(unit >> 8U));
  }
  const auto findings = checkText(bytes);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].place.line, 4U);
  EXPECT_EQ(findings[0].column, 6U);
  const auto marked = checkText("\xEF\xBB\xBF"
                                "BEGIN:VCARD\r\nEND:VCARD\r\n");
  ASSERT_FALSE(marked.empty());
  EXPECT_EQ(marked[0].column, 1U);
}

} // namespace
} // namespace cardwright
