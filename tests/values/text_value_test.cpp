#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vcard_x_value.h"
#include "support/text_printer.h"
#include "support/value_texts.h"

#include <gtest/gtest.h>

namespace cardwright {
namespace {

template <typename Value>
class TextValues : public testing::Test {};

using Classes = testing::Types<VCardTextValue, VCardURIValue, VCardXValue>;
TYPED_TEST_SUITE(TextValues, Classes);

TYPED_TEST(TextValues, areMadeWithAText) {
  EXPECT_EQ(TypeParam::valueWithText(TextView(u"a"))->text(), TextView(u"a"));
  EXPECT_EQ(TypeParam::valueWithText(TextView(u""))->text(), TextView());
  EXPECT_FALSE(TypeParam::valueWithText(std::nullopt)->text());
  EXPECT_FALSE(TypeParam().text());
}

TYPED_TEST(TextValues, decodeTheWholeText) {
  struct Row {
    TextView raw;
    TextView text;
  };
  constexpr Row kRows[] = {
      {u"", u""},
      {u"plain", u"plain"},
      {u" blanks stay ", u" blanks stay "},
      {u"a;b,c:d", u"a;b,c:d"},
      {u"a\\;b\\,c\\:d\\\\e", u"a;b,c:d\\e"},
      {u"a\\nb\\Nc\\rd\\Re", u"a\nb\nc\rd\re"},
      {u"\\t\\\"", u"t\""},
      {u"end\\", u"end"},
      {u"\\", u""},
      {u"=41", u"=41"},
      {u"^n^^", u"^n^^"},
      {u"\u00E9\\,\U0001F600", u"\u00E9,\U0001F600"},
  };
  for (const Row& row : kRows) {
    for (const VersionCode version : kVersionCodes) {
      EXPECT_EQ(parsed<TypeParam>(row.raw, version)->text(), row.text)
          << testing::PrintToString(row.raw) << ' ' << version;
    }
  }
}

TYPED_TEST(TextValues, keepLoneSurrogatesAndZeroUnits) {
  const Text text = {u'a', char16_t{0xD800}, u'\\', char16_t{0xDC00}, u'\0', u'b'};
  EXPECT_EQ(parsed<TypeParam>(text)->text(),
            TextView(Text{u'a', char16_t{0xD800}, char16_t{0xDC00}, u'\0', u'b'}));
}

TYPED_TEST(TextValues, decodeQuotedPrintableInTheirCharset) {
  EXPECT_EQ(parsedAs<TypeParam>(true, u"utf-8", u"=C3=A9=2C")->text(), TextView(u"\u00E9,"));
  EXPECT_EQ(parsedAs<TypeParam>(true, u"ISO-8859-1", u"=C3=A9")->text(), TextView(u"\u00C3\u00A9"));
  EXPECT_EQ(parsedAs<TypeParam>(true, std::nullopt, u"a=0D=0Ab")->text(), TextView(u"a\r\nb"));
  EXPECT_EQ(parsedAs<TypeParam>(true, std::nullopt, u"=3d")->text(), TextView(u"3d"));
  EXPECT_EQ(parsedAs<TypeParam>(false, u"utf-8", u"=C3=A9")->text(), TextView(u"=C3=A9"));
  EXPECT_EQ(parsedAs<TypeParam>(false, u"hz-gb-2312", u"~{VPND~}")->text(),
            TextView(u"\u4E2D\u6587"));
}

TYPED_TEST(TextValues, needNoFormatter) {
  TypeParam value;
  EXPECT_TRUE(value.parse(u"a\\,b", 4, nullptr));
  Text output;
  value.generate(output, 4, nullptr);
  EXPECT_EQ(output, u"a\\,b");
}

TYPED_TEST(TextValues, replaceWhatTheyHeld) {
  TypeParam value;
  EXPECT_TRUE(value.parse(u"long enough not to fit anywhere", 4, nullptr));
  value.setText(value.text()->substr(5, 6));
  EXPECT_EQ(value.text(), TextView(u"enough"));
  EXPECT_TRUE(value.parse(u"\\", 4, nullptr));
  EXPECT_EQ(value.text(), TextView());
  value.setText(std::nullopt);
  EXPECT_FALSE(value.text());
}

TYPED_TEST(TextValues, escapeSemicolonsForVersion3Only) {
  TypeParam value;
  value.setText(u"a;b,c\\d:e\r\nf\ng\rh\"");
  for (const VersionCode version : kVersionCodes) {
    EXPECT_EQ(written(value, version),
              version == 3 ? u"a\\;b\\,c\\\\d:e\\nf\\ng\\nh\"" : u"a;b\\,c\\\\d:e\\nf\\ng\\nh\"")
        << version;
  }
}

TYPED_TEST(TextValues, writeNothingForAnAbsentOrEmptyText) {
  EXPECT_EQ(written(TypeParam()), u"");
  EXPECT_EQ(written(*TypeParam::valueWithText(TextView())), u"");
}

TYPED_TEST(TextValues, leaveOutWhatXmlCannotHold) {
  TypeParam value;
  value.setText(Text{u'a', 0x01, 0xFFFD, 0xD7FF, 0xD800, u'b', 0xD7FE, 0xFFFC, u'\t'});
  EXPECT_EQ(written(value), (Text{u'a', u'b', 0xD7FE, 0xFFFC, u'\t'}));
}

TYPED_TEST(TextValues, appendToWhatIsThere) {
  Text output = u"before:";
  TypeParam::valueWithText(TextView(u"a"))->generate(output, 4, nullptr);
  EXPECT_EQ(output, u"before:a");
}

TYPED_TEST(TextValues, areDescribedAsForAnUnknownVersion) {
  EXPECT_EQ(TypeParam::valueWithText(TextView(u"a;b,c"))->description(), u"a;b\\,c");
}

TEST(TextValueTypes, belongToTheClass) {
  EXPECT_EQ(VCardTextValue().type(), TextView(u"text"));
  EXPECT_EQ(VCardURIValue().type(), TextView(u"uri"));
  EXPECT_EQ(VCardURIValue::valueWithText(TextView(u"a"))->type(), TextView(u"uri"));
}

TEST(TextValueTypes, ofAnExtensionCanBeSet) {
  EXPECT_FALSE(VCardXValue().type());
  EXPECT_FALSE(VCardXValue::valueWithText(TextView(u"a"))->type());
  EXPECT_FALSE(VCardXValue::valueWithType(std::nullopt)->type());
  const auto value = VCardXValue::valueWithType(TextView(u"Boolean"));
  EXPECT_EQ(value->type(), TextView(u"Boolean")) << "as it was given";
  EXPECT_FALSE(value->text());
  value->setType(u"x-other");
  EXPECT_EQ(value->type(), TextView(u"x-other"));
  value->setType(value->type()->substr(2));
  EXPECT_EQ(value->type(), TextView(u"other"));
  EXPECT_TRUE(value->parse(u"TRUE", 4, nullptr));
  EXPECT_EQ(value->type(), TextView(u"other")) << "reading does not change it";
  value->setType(std::nullopt);
  EXPECT_FALSE(value->type());
}

} // namespace
} // namespace cardwright
