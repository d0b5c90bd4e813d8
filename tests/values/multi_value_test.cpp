#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vcard_x_value.h"
#include "support/text_printer.h"
#include "support/value_texts.h"

#include <gtest/gtest.h>

#include <typeinfo>

namespace cardwright {
namespace {

std::shared_ptr<VCardMultiValue> listOf(TextView elementType, TextView text,
                                        VersionCode version = 4) {
  DateFormatter formatter("en_US_POSIX");
  auto list = VCardMultiValue::valueWithType(elementType);
  EXPECT_TRUE(list->parse(text, version, &formatter));
  return list;
}

VCardValueList elementsOf(const VCardMultiValue& list) {
  return list.values().value_or(VCardValueList());
}

TextList textsOf(const VCardMultiValue& list) {
  TextList texts;
  for (const auto& element : elementsOf(list)) {
    texts.emplace_back(dynamic_cast<const VCardTextValue&>(*element).text().value());
  }
  return texts;
}

TEST(VCardMultiValue, hasTheTypeOfItsElements) {
  EXPECT_EQ(VCardMultiValue::valueWithType(TextView(u"Text"))->type(), TextView(u"Text"));
  EXPECT_FALSE(VCardMultiValue::valueWithType(std::nullopt)->type());
  EXPECT_FALSE(VCardMultiValue().type());
}

TEST(VCardMultiValue, makesItsListWithTheFirstElement) {
  const auto list = VCardMultiValue::valueWithType(TextView(u"text"));
  EXPECT_FALSE(list->values());
  list->addTextValues({});
  EXPECT_FALSE(list->values());
  list->addTextValue(TextView(u"a"));
  EXPECT_EQ(list->values()->size(), 1U);
  list->setValues(std::nullopt);
  EXPECT_FALSE(list->values());
}

TEST(VCardMultiValue, addsTextsInOrder) {
  const auto list = VCardMultiValue::valueWithType(TextView(u"uri"));
  list->addTextValue(TextView(u"a,b"));
  list->addTextValues({u"", u"\\n", u"a,b"});
  EXPECT_EQ(textsOf(*list), (TextList{u"a,b", u"", u"\\n", u"a,b"}));
  for (const auto& element : elementsOf(*list)) {
    EXPECT_EQ(classOf(element), typeid(VCardTextValue)) << "whatever the element type is";
  }
  list->addTextValue(std::nullopt);
  EXPECT_FALSE(dynamic_cast<VCardTextValue&>(*list->values()->back()).text());
}

TEST(VCardMultiValue, handsOutACopyOfItsList) {
  const auto list = listOf(u"text", u"a,b");
  auto values = list->values();
  EXPECT_EQ(values->front(), list->values()->front()) << "of the same objects";
  values->clear();
  EXPECT_EQ(list->values()->size(), 2U);
}

TEST(VCardMultiValue, splitsAtCommasThatAreNotEscaped) {
  struct Row {
    TextView text;
    TextList elements;
  };
  const Row kRows[] = {
      {u"", {u""}},
      {u",", {u"", u""}},
      {u"a", {u"a"}},
      {u"a,b,c", {u"a", u"b", u"c"}},
      {u"a,,b,", {u"a", u"", u"b", u""}},
      {u"a\\,b,c", {u"a,b", u"c"}},
      {u"a\\\\,b", {u"a\\", u"b"}},
      {u"a\\\\\\,b", {u"a\\,b"}},
      {u"a\\", {u"a"}},
      {u"a,\\", {u"a", u""}},
      {u" a ,\tb\u3000,  ", {u"a", u"b", u""}},
      {u"a b", {u"a b"}},
      {u"\r\na\n", {u"\r\na\n"}},
      {u"a\\nb,c;d", {u"a\nb", u"c;d"}},
      {u"\\ a", {u" a"}},
      {u"a\\ ,b", {u"a", u"b"}},
  };
  for (const Row& row : kRows) {
    for (const VersionCode version : kVersionCodes) {
      EXPECT_EQ(textsOf(*listOf(u"text", row.text, version)), row.elements)
          << testing::PrintToString(row.text);
    }
  }
}

TEST(VCardMultiValue, appendsToWhatItHolds) {
  DateFormatter formatter;
  const auto list = listOf(u"text", u"a,b");
  EXPECT_TRUE(list->parse(u"c", 4, &formatter));
  EXPECT_EQ(textsOf(*list), (TextList{u"a", u"b", u"c"}));
}

TEST(VCardMultiValue, makesElementsOfItsType) {
  EXPECT_EQ(classOf(listOf(u"URI", u"a")->values()->front()), typeid(VCardURIValue));
  const auto extensions = listOf(u"x-Foo", u"a,b");
  for (const auto& element : elementsOf(*extensions)) {
    EXPECT_EQ(classOf(element), typeid(VCardXValue));
    EXPECT_EQ(element->type(), TextView(u"x-Foo"));
  }
  dynamic_cast<VCardXValue&>(*extensions->values()->front()).setType(u"other");
  EXPECT_EQ(extensions->values()->back()->type(), TextView(u"x-Foo")) << "each has its own";
  EXPECT_EQ(extensions->type(), TextView(u"x-Foo"));
}

TEST(VCardMultiValue, keepsElementsThatCouldNotBeRead) {
  const auto list = listOf(u"Geo3.0", u"1;2,3,4;5");
  ASSERT_EQ(list->values()->size(), 3U);
  const auto& unread = dynamic_cast<const VCardGeoValue&>(*(*list->values())[1]);
  EXPECT_EQ(unread.latitude(), 0);
  EXPECT_EQ(written(*list), u"1.000000;2.000000,0.000000;0.000000,4.000000;5.000000");
}

TEST(VCardMultiValue, handsFormatterAndVersionToItsElements) {
  DateFormatter formatter("en_US_POSIX");
  const auto list = VCardMultiValue::valueWithType(TextView(u"date"));
  EXPECT_TRUE(list->parse(u"19850412,--0412", 4, &formatter));
  const auto& first = dynamic_cast<const VCardDateTimeValue&>(*list->values()->front());
  EXPECT_EQ(first.comps().year, 1985);
  EXPECT_EQ(written(*list, 4), u"19850412,--0412");
  EXPECT_EQ(written(*list, 3).substr(0, 11), u"1985-04-12,");
}

TEST(VCardMultiValue, handsItsEncodingToItsElements) {
  DateFormatter formatter;
  const auto list = VCardMultiValue::valueWithType(TextView(u"text"));
  list->setQuotedPrintable(true);
  list->setCharset(u"utf-8");
  EXPECT_TRUE(list->parse(u"=C3=A9,a=2Cb", 2, &formatter));
  EXPECT_EQ(textsOf(*list), (TextList{u"\u00E9", u"a,b"}));
  for (const auto& element : elementsOf(*list)) {
    EXPECT_TRUE(element->quotedPrintable());
    EXPECT_EQ(element->charset(), TextView(u"utf-8"));
  }
  list->setCharset(u"ascii");
  list->setQuotedPrintable(false);
  EXPECT_EQ(list->values()->front()->charset(), TextView(u"utf-8")) << "they keep what they got";
  EXPECT_TRUE(list->values()->front()->quotedPrintable());
}

TEST(VCardMultiValue, givesAddedTextsNoEncoding) {
  const auto list = VCardMultiValue::valueWithType(TextView(u"text"));
  list->setQuotedPrintable(true);
  list->setCharset(u"utf-8");
  list->addTextValue(TextView(u"=41"));
  EXPECT_FALSE(list->values()->front()->quotedPrintable());
  EXPECT_FALSE(list->values()->front()->charset());
  EXPECT_EQ(textsOf(*list), (TextList{u"=41"}));
}

TEST(VCardMultiValue, makesNoElementsWithoutAType) {
  DateFormatter formatter;
  VCardMultiValue list;
  EXPECT_TRUE(list.parse(u"a,b", 4, &formatter));
  EXPECT_FALSE(list.values());
}

TEST(VCardMultiValueDeathTest, needsAFormatterToRead) {
  const auto list = VCardMultiValue::valueWithType(TextView(u"text"));
  EXPECT_DEATH((void)list->parse(u"a", 4, nullptr), "Formatter is nil");
  EXPECT_DEATH((void)list->parse(u"", 4, nullptr), "Formatter is nil");
}

TEST(VCardMultiValue, joinsWithCommas) {
  const auto list = listOf(u"text", u"a\\,b,c;d,,e");
  for (const VersionCode version : kVersionCodes) {
    EXPECT_EQ(written(*list, version), version == 3 ? u"a\\,b,c\\;d,,e" : u"a\\,b,c;d,,e");
  }
  EXPECT_EQ(written(*listOf(u"text", u"")), u"");
  EXPECT_EQ(written(VCardMultiValue()), u"");
  VCardMultiValue empty;
  empty.setValues(VCardValueList());
  EXPECT_EQ(written(empty), u"");
}

TEST(VCardMultiValue, needsNoFormatterToWriteTexts) {
  Text output;
  listOf(u"text", u"a,b")->generate(output, 4, nullptr);
  EXPECT_EQ(output, u"a,b");
}

TEST(VCardMultiValue, writesNoCommaBeforeARepeatOfTheFirstObject) {
  const auto a = VCardTextValue::valueWithText(TextView(u"a"));
  const auto b = VCardTextValue::valueWithText(TextView(u"b"));
  const auto anotherA = VCardTextValue::valueWithText(TextView(u"a"));
  struct Row {
    VCardValueList values;
    TextView text;
  };
  const Row kRows[] = {
      {{a, a}, u"aa"},           {{a, anotherA}, u"a,a"}, {{a, b, a}, u"a,ba"},
      {{a, b, a, b}, u"a,ba,b"}, {{b, a, a}, u"b,a,a"},   {{a, a, a}, u"aaa"},
  };
  for (const Row& row : kRows) {
    VCardMultiValue list;
    list.setValues(row.values);
    EXPECT_EQ(written(list), row.text);
  }
}

TEST(VCardMultiValue, survivesElementsThatAreNone) {
  VCardMultiValue list;
  list.setValues(VCardValueList{nullptr, VCardTextValue::valueWithText(TextView(u"a")), nullptr});
  EXPECT_EQ(written(list), u",a");
}

TEST(VCardMultiValue, writesElementsOfAnyClass) {
  VCardMultiValue list;
  list.setValues(VCardValueList{VCardTextValue::valueWithText(TextView(u"a,b")),
                                std::make_shared<VCardGeoValue>(), listOf(u"text", u"x,y")});
  EXPECT_EQ(written(list), u"a\\,b,0.000000;0.000000,x,y");
}

} // namespace
} // namespace cardwright
