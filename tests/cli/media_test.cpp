#include "support/text_printer.h"
#include "view/media.h"

#include <gtest/gtest.h>

#include <memory>

namespace cardwright::tool {
namespace {

std::optional<Text> describe(TextView text, TextView encoding = {}, TextView type = {}) {
  const auto property = VCardProperty::propertyWithName(u"PHOTO", std::optional<TextView>(text));
  if (!encoding.empty()) {
    property->addParameter(VCardParameter::parameterWithName(u"ENCODING", encoding));
  }
  if (!type.empty()) {
    property->addParameter(VCardParameter::parameterWithName(u"TYPE", type));
  }
  return inlineDataText(*property, text);
}

TEST(InlineDataText, tellsSizeAndFormatOfBase64) {
  EXPECT_EQ(describe(u"R0lGODlh", u"b"), u"0.1 KB GIF");
  EXPECT_EQ(describe(u"iVBORw0K" + Text(4096, u'A'), u"BASE64"), u"3 KB PNG");
  EXPECT_EQ(describe(u"/9j/" + Text(16380, u'A'), u"b"), u"12 KB JPEG");
  EXPECT_EQ(describe(u"/9j/" + Text(4'000'000, u'A'), u"b"), u"2.9 MB JPEG");
}

TEST(InlineDataText, believesTheBytesBeforeTheParameter) {
  EXPECT_EQ(describe(u"R0lGODlh", u"b", u"JPEG"), u"0.1 KB GIF");
  EXPECT_EQ(describe(u"AAAA", u"b", u"jpeg"), u"0.1 KB JPEG");
  EXPECT_EQ(describe(u"AAAA", u"b", u"HOME"), u"0.1 KB of data");
}

TEST(InlineDataText, readsDataUris) {
  EXPECT_EQ(describe(u"data:image/png;base64,iVBORw0K"), u"0.1 KB PNG");
  EXPECT_EQ(describe(u"DATA:image/webp;x=y;BASE64,AAAA"), u"0.1 KB WEBP");
  EXPECT_EQ(describe(u"data:,a%20b"), u"0.1 KB of data");
  EXPECT_EQ(describe(u"data:"), u"0 KB of data");
}

TEST(InlineDataText, saysWhatIsDamaged) {
  EXPECT_EQ(describe(u"R0lG!ODlh", u"b"), u"0.1 KB GIF, damaged");
}

TEST(InlineDataText, knowsDataThatNothingMarks) {
  EXPECT_EQ(describe(u"/9j/" + Text(4000, u'A')), u"2.9 KB JPEG");
}

TEST(InlineDataText, leavesWhatPeopleCanRead) {
  EXPECT_EQ(describe(u"https://example.org/me.jpg"), std::nullopt);
  EXPECT_EQ(describe(u""), std::nullopt);
  EXPECT_EQ(describe(u"", u"b"), std::nullopt);
  EXPECT_EQ(describe(u"https://example.org/" + Text(4000, u'a')), std::nullopt);
  Text prose;
  for (int word = 0; word < 200; ++word) {
    prose += u"word ";
  }
  EXPECT_EQ(describe(prose), std::nullopt);
}

} // namespace
} // namespace cardwright::tool
