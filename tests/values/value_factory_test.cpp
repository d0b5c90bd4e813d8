#include "base/case.h"
#include "cardwright/vcard_address_value.h"
#include "cardwright/vcard_custom_value.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_gender_value.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_org_value.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "cardwright/vcard_x_value.h"
#include "support/text_printer.h"
#include "support/value_texts.h"

#include <gtest/gtest.h>

#include <typeinfo>

namespace cardwright {
namespace {

struct Row {
  TextView type;
  const std::type_info& valueClass;
  /// What the value then says its type is.
  std::optional<TextView> ownType;
};

const Row kRows[] = {
    {u"Address", typeid(VCardAddressValue), u"Address"},
    {u"date", typeid(VCardDateTimeValue), u"date"},
    {u"date-time", typeid(VCardDateTimeValue), u"date-time"},
    {u"time", typeid(VCardDateTimeValue), u"time"},
    {u"date-and-or-time", typeid(VCardDateTimeValue), u"date-and-or-time"},
    {u"timestamp", typeid(VCardDateTimeValue), u"timestamp"},
    {u"N", typeid(VCardNValue), u"N"},
    {u"text", typeid(VCardTextValue), u"text"},
    {u"BINARY", typeid(VCardTextValue), u"text"},
    {u"uri", typeid(VCardURIValue), u"uri"},
    {u"utc-offset", typeid(VCardUTCOffsetValue), u"utc-offset"},
    {u"Gender", typeid(VCardGenderValue), u"Gender"},
    {u"Org", typeid(VCardOrgValue), u"Org"},
    {u"Geo3.0", typeid(VCardGeoValue), u"Geo3.0"},
    {u"Custom", typeid(VCardCustomValue), std::nullopt},
};

TEST(ValueFactory, makesTheClassThatATypeNames) {
  for (const Row& row : kRows) {
    const auto value = VCardValue::valueWithType(row.type);
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(classOf(value), row.valueClass) << testing::PrintToString(row.type);
    EXPECT_EQ(value->type(), row.ownType);
    EXPECT_FALSE(value->quotedPrintable());
    EXPECT_FALSE(value->charset());
    EXPECT_NE(VCardValue::valueWithType(row.type), value) << "a new one each time";
  }
}

TEST(ValueFactory, comparesTypesWithoutRegardToCase) {
  for (const Row& row : kRows) {
    for (const Text& type : {upperCased(row.type), lowerCased(row.type)}) {
      const auto value = VCardValue::valueWithType(TextView(type));
      EXPECT_EQ(classOf(value), row.valueClass) << testing::PrintToString(type);
      if (row.valueClass == typeid(VCardDateTimeValue)) {
        EXPECT_EQ(value->type(), TextView(type)) << "dates keep the name they are made with";
      } else {
        EXPECT_EQ(value->type(), row.ownType);
      }
    }
  }
}

TEST(ValueFactory, foldsTypesInFull) {
  // Long s and the ligature for st fold to ASCII letters.
  EXPECT_EQ(classOf(VCardValue::valueWithType(TextView(u"Addre\u017F\u017F"))),
            typeid(VCardAddressValue));
  EXPECT_EQ(classOf(VCardValue::valueWithType(TextView(u"Addre\u00DF"))),
            typeid(VCardAddressValue));
  EXPECT_EQ(classOf(VCardValue::valueWithType(TextView(u"time\uFB06amp"))),
            typeid(VCardDateTimeValue));
  EXPECT_EQ(classOf(VCardValue::valueWithType(TextView(u"cu\uFB05om"))), typeid(VCardCustomValue));
  EXPECT_EQ(classOf(VCardValue::valueWithType(TextView(u"utc-o\uFB00set"))),
            typeid(VCardUTCOffsetValue));
  EXPECT_EQ(classOf(VCardValue::valueWithType(TextView(u"b\u0131nary"))), typeid(VCardXValue))
      << "dotless i is another letter";
}

TEST(ValueFactory, keepsTheNamesOfOtherTypes) {
  const Text lone(1, char16_t{0xDC00});
  for (const TextView type :
       {TextView(u"boolean"), TextView(u"integer"), TextView(u"float"), TextView(u"language-tag"),
        TextView(u"X-Foo"), TextView(u""), TextView(u" text"), TextView(u"texts"), TextView(lone),
        TextView(u"inline"), TextView(u"url")}) {
    const auto value = VCardValue::valueWithType(type);
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(classOf(value), typeid(VCardXValue)) << testing::PrintToString(type);
    EXPECT_EQ(value->type(), type);
  }
  const Text longType(100'000, u'X');
  EXPECT_EQ(VCardValue::valueWithType(TextView(longType))->type(), TextView(longType));
}

TEST(ValueFactory, makesNothingOfAnAbsentType) {
  EXPECT_EQ(VCardValue::valueWithType(std::nullopt), nullptr);
}

TEST(VCardValue, hasNoTypeAndNoTextOfItsOwn) {
  VCardValue value;
  EXPECT_FALSE(value.type());
  EXPECT_FALSE(value.parse(u"a", 4, nullptr));
  EXPECT_EQ(written(value), u"");
  EXPECT_EQ(value.description(), u"");
}

TEST(VCardValue, keepsItsEncodingAndCharset) {
  VCardValue value;
  EXPECT_FALSE(value.quotedPrintable());
  EXPECT_FALSE(value.charset());
  value.setQuotedPrintable(true);
  value.setCharset(u"utf-8");
  EXPECT_TRUE(value.quotedPrintable());
  EXPECT_EQ(value.charset(), TextView(u"utf-8"));
  value.setCharset(value.charset()->substr(0, 3));
  EXPECT_EQ(value.charset(), TextView(u"utf"));
  value.setCharset(u"");
  EXPECT_EQ(value.charset(), TextView()) << "empty is not absent";
  value.setCharset(std::nullopt);
  EXPECT_FALSE(value.charset());
}

} // namespace
} // namespace cardwright
