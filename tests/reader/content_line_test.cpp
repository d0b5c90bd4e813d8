#include "cardwright/date_formatter.h"
#include "cardwright/vcard_address_value.h"
#include "cardwright/vcard_custom_value.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_gender_value.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_org_value.h"
#include "cardwright/vcard_property.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "cardwright/vcard_x_value.h"
#include "reader/content_line.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <typeinfo>

namespace cardwright {
namespace {

/// The property of a content line, or null.
std::shared_ptr<VCardProperty> parsed(TextView line, VersionCode version = 3) {
  DateFormatter formatter("en_US_POSIX");
  auto property = std::make_shared<VCardProperty>();
  return property->parse(line, version, &formatter) ? property : nullptr;
}

DropReason reasonFor(TextView line, VersionCode version = 3) {
  DateFormatter formatter("en_US_POSIX");
  VCardProperty property;
  return ContentLineParser(version, &formatter).parse(line, property);
}

TextList valuesOf(const std::shared_ptr<VCardProperty>& property, TextView name) {
  const auto parameter = property == nullptr ? nullptr : property->parameterWithName(name);
  return parameter == nullptr ? TextList{} : parameter->values();
}

template <typename Value>
bool holds(const std::shared_ptr<VCardProperty>& property) {
  if (property == nullptr || property->value() == nullptr) {
    return false;
  }
  const VCardValue& value = *property->value();
  return typeid(value) == typeid(Value);
}

TEST(ContentLine, hasGroupNameParametersAndValue) {
  const auto property = parsed(u"item1.EMAIL;type=INTERNET;type=pref:jane@example.com");
  ASSERT_NE(property, nullptr);
  EXPECT_EQ(property->group(), u"item1");
  EXPECT_EQ(property->name(), u"EMAIL");
  EXPECT_EQ(property->textValue(), u"jane@example.com");
  EXPECT_EQ(property->parameterDict()->size(), 1U);
  EXPECT_EQ(valuesOf(property, u"TYPE"), (TextList{u"INTERNET", u"pref"}));
}

struct NameCase {
  TextView line;
  std::optional<TextView> group;
  TextView name;
};

TEST(ContentLine, dividesTheNameTokenAtItsFirstDot) {
  const NameCase cases[] = {
      {u"tel:1", std::nullopt, u"TEL"},
      {u"Home.tel:1", u"Home", u"TEL"},
      {u"a.b.tel:1", u"a", u"B.TEL"},
      {u".tel:1", u"", u"TEL"},
      {u"item1.:1", u"item1", u""},
      {u" \u00A0\ttel:1", std::nullopt, u"TEL"},
      {u"tel \t:1", std::nullopt, u"TEL \t"},
      {u"\"x-a;b\":1", std::nullopt, u"X-A;B"},
      {u"stra\u00DFe:1", std::nullopt, u"STRASSE"},
  };
  for (const NameCase& c : cases) {
    const auto property = parsed(c.line);
    ASSERT_NE(property, nullptr) << ::testing::PrintToString(Text(c.line));
    EXPECT_EQ(property->group(), c.group) << ::testing::PrintToString(Text(c.line));
    EXPECT_EQ(property->name(), c.name) << ::testing::PrintToString(Text(c.line));
    EXPECT_FALSE(property->parameterDict());
  }
}

struct ParameterCase {
  TextView line;
  TextView name;
  TextList values;
};

TEST(ContentLine, readsParameters) {
  const ParameterCase cases[] = {
      {u"TEL;HOME;VOICE:123", u"TYPE", {u"HOME", u"VOICE"}},
      {u"TEL;TYPE=home,work;type=cell:123", u"TYPE", {u"home", u"work", u"cell"}},
      {u"TEL; TYPE=\thome :123", u"TYPE", {u"home "}},
      {u"TEL;TYPE=home, work:123", u"TYPE", {u"home", u"work"}},
      {u"TEL;TYPE=\"home\",\"a,b\":123", u"TYPE", {u"home", u"a,b"}},
      {u"TEL;TYPE=a=b:123", u"TYPE", {u"a=b"}},
      {u"TEL;HOME,WORK:123", u"TYPE", {u"HOME,WORK"}},
      {u"TEL;\"HOME\",WORK:123", u"TYPE", {u"HOME", u"WORK"}},
      {u"TEL;\"T=Y;P:E\"=x:123", u"T=Y;P:E", {u"x"}},
      {u"X-A;X-LABEL=\"a;b:c\":v", u"X-LABEL", {u"a;b:c"}},
      {u"X-A;x-label=a^nb^'c^^d^x:v", u"X-LABEL", {u"a\nb\"c^d^x"}},
      {u"X-A;X-LABEL=\"a^'b\":v", u"X-LABEL", {u"a\"b"}},
      {u"X-A;X-LABEL=a,^nb:v", u"X-LABEL", {u"a", u"\nb"}},
      {u"X-A;X-LABEL=a,,b:v", u"X-LABEL", {u"a"}},
      {u"X-A;X-LABEL=a,\"\":v", u"X-LABEL", {u"a"}},
      {u"X-A;X-LABEL=a,:v", u"X-LABEL", {u"a"}},
      {u"X-A;X-LABEL=\"a\"b;c\"=d:v", u"X-LABEL", {u"a"}},
      {u"PHOTO;BASE64:AAAA", u"ENCODING", {u"BASE64"}},
      {u"photo;base64;JPEG:AAAA", u"ENCODING", {u"base64"}},
      {u"PHOTO;TYPE=BASE64:AAAA", u"TYPE", {u"BASE64"}},
      {u"LOGO;BASE64:AAAA", u"TYPE", {u"BASE64"}},
      {u"PHOTO;B:AAAA", u"TYPE", {u"B"}},
  };
  for (const ParameterCase& c : cases) {
    const auto property = parsed(c.line);
    ASSERT_NE(property, nullptr) << ::testing::PrintToString(Text(c.line));
    EXPECT_EQ(valuesOf(property, c.name), c.values) << ::testing::PrintToString(Text(c.line));
  }
}

TEST(ContentLine, stepsOverStrayTextBehindAClosingQuote) {
  const auto property = parsed(u"X-A;X-B=\"b\"stray=text;X-C=c:v");
  ASSERT_NE(property, nullptr);
  EXPECT_EQ(property->parameterDict()->size(), 2U);
  EXPECT_EQ(valuesOf(property, u"X-C"), TextList{u"c"});
  EXPECT_EQ(property->textValue(), u"v");

  const auto name = parsed(u"\"X-A\"stray:v");
  ASSERT_NE(name, nullptr);
  EXPECT_EQ(name->name(), u"X-A");
  EXPECT_EQ(name->textValue(), u"v");
}

TEST(ContentLine, dropsBlanksBeforeTheValueButNotBehindIt) {
  EXPECT_EQ(parsed(u"NOTE: \t\u00A0a b \t")->textValue(), u"a b \t");
  EXPECT_EQ(parsed(u"NOTE:\u2028a")->textValue(), u"\u2028a");
  EXPECT_EQ(parsed(u"NOTE:")->textValue(), u"");
  EXPECT_EQ(parsed(u"NOTE:a:b")->textValue(), u"a:b");
}

TEST(ContentLine, isRejectedWhenATokenFails) {
  struct {
    TextView line;
    DropReason reason;
  } const cases[] = {
      {u"", DropReason::missingColon},
      {u"TEL", DropReason::missingColon},
      {u"TEL;TYPE=home", DropReason::missingColon},
      {u"TEL;", DropReason::missingColon},
      {u"TEL;HOME", DropReason::missingColon},
      {u"TEL;TYPE=", DropReason::missingColon},
      {u"TEL;TYPE=a,b", DropReason::missingColon},
      {u"TEL;TYPE=\"a\"", DropReason::missingColon},
      {u"TEL;TYPE=\"a:b", DropReason::missingColon},
      {u"TEL;TYPE=\"a\"x", DropReason::missingColon},
      {u":text", DropReason::missingName},
      {u"  ;A=b:text", DropReason::missingName},
      {u"\"\":text", DropReason::missingName},
      {u"NOTE;:text", DropReason::emptyParameterName},
      {u"NOTE;=a:text", DropReason::emptyParameterName},
      {u"NOTE;\"\"=a:text", DropReason::emptyParameterName},
      {u"NOTE;;A=b:text", DropReason::emptyParameterName},
      {u"NOTE;X-EMPTY=:text", DropReason::emptyParameterValue},
      {u"NOTE;X-EMPTY= \t:text", DropReason::emptyParameterValue},
      {u"NOTE;X-EMPTY=\"\":text", DropReason::emptyParameterValue},
      {u"NOTE;X-EMPTY=,a:text", DropReason::emptyParameterValue},
      {u"VERSION;VALUE=date:4.0", DropReason::versionWithoutText},
      {u"version;VALUE=Address:4.0", DropReason::versionWithoutText},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(reasonFor(c.line), c.reason) << ::testing::PrintToString(Text(c.line));
    EXPECT_EQ(parsed(c.line), nullptr) << ::testing::PrintToString(Text(c.line));
  }
}

TEST(ContentLine, takesAVersionOfAnyTextClass) {
  EXPECT_EQ(reasonFor(u"VERSION:4.0"), DropReason::none);
  EXPECT_EQ(reasonFor(u"VERSION;VALUE=uri:4.0"), DropReason::none);
  EXPECT_EQ(reasonFor(u"VERSION;VALUE=x-own:4.0"), DropReason::none);
  EXPECT_EQ(reasonFor(u"VERSION:"), DropReason::none);
  // Other properties need only a value.
  EXPECT_EQ(reasonFor(u"REV:no date"), DropReason::none);
}

TEST(ContentLine, choosesTheClassByNameAndVersion) {
  for (const VersionCode version : {-1, 0, 1, 2, 3}) {
    EXPECT_TRUE(holds<VCardTextValue>(parsed(u"PHOTO:x", version)));
    EXPECT_TRUE(holds<VCardGeoValue>(parsed(u"GEO:1;2", version)));
    EXPECT_TRUE(holds<VCardUTCOffsetValue>(parsed(u"TZ:+01:00", version)));
  }
  for (const VersionCode version : {4, 5, 99}) {
    EXPECT_TRUE(holds<VCardURIValue>(parsed(u"PHOTO:x", version)));
    EXPECT_TRUE(holds<VCardURIValue>(parsed(u"GEO:1;2", version)));
    EXPECT_TRUE(holds<VCardTextValue>(parsed(u"TZ:+01:00", version)));
  }
  EXPECT_TRUE(holds<VCardTextValue>(parsed(u"X-FOO:x")));
  EXPECT_TRUE(holds<VCardAddressValue>(parsed(u"ADR:;;x")));
  EXPECT_TRUE(holds<VCardNValue>(parsed(u"N:a;b")));
  EXPECT_TRUE(holds<VCardOrgValue>(parsed(u"ORG:a;b")));
  EXPECT_TRUE(holds<VCardGenderValue>(parsed(u"GENDER:M")));
  EXPECT_TRUE(holds<VCardCustomValue>(parsed(u"X-CUSTOM:a-=+=-b")));
  EXPECT_TRUE(holds<VCardDateTimeValue>(parsed(u"BDAY:19960415")));
  EXPECT_TRUE(holds<VCardMultiValue>(parsed(u"NICKNAME:a,b")));
}

TEST(ContentLine, letsAnExplicitTypeOverrideTheDefault) {
  EXPECT_TRUE(holds<VCardTextValue>(parsed(u"BDAY;VALUE=text:circa 1800")));
  EXPECT_TRUE(holds<VCardURIValue>(parsed(u"NOTE;value=URI:http://example.com")));
  EXPECT_TRUE(holds<VCardGeoValue>(parsed(u"X-A;VALUE=geo3.0:1;2")));
  EXPECT_TRUE(holds<VCardXValue>(parsed(u"X-A;VALUE=boolean:TRUE")));
  EXPECT_EQ(parsed(u"X-A;VALUE=Boolean,text:TRUE")->value()->type(), u"Boolean");
  EXPECT_EQ(parsed(u"BDAY;VALUE=Date:1996-04-15")->value()->type(), u"Date");
}

TEST(ContentLine, knowsThatStructuredValuesAreTexts) {
  EXPECT_TRUE(holds<VCardAddressValue>(parsed(u"ADR;VALUE=text:;;x")));
  EXPECT_TRUE(holds<VCardNValue>(parsed(u"N;VALUE=TEXT:a;b")));
  EXPECT_TRUE(holds<VCardOrgValue>(parsed(u"ORG;VALUE=text:a")));
  EXPECT_TRUE(holds<VCardGenderValue>(parsed(u"GENDER;VALUE=text:M")));
  EXPECT_TRUE(holds<VCardGeoValue>(parsed(u"GEO;VALUE=text:1;2")));
  EXPECT_TRUE(holds<VCardCustomValue>(parsed(u"X-CUSTOM;VALUE=text:a")));
  EXPECT_TRUE(holds<VCardURIValue>(parsed(u"ADR;VALUE=uri:geo:1,2")));
  // In version 4 a position is a URI, which a text is not.
  EXPECT_TRUE(holds<VCardTextValue>(parsed(u"GEO;VALUE=text:1;2", 4)));
}

TEST(ContentLine, givesListsElementsOfTheTypeThatIsStated) {
  const auto property = parsed(u"CATEGORIES;VALUE=uri:a,b");
  ASSERT_TRUE(holds<VCardMultiValue>(property));
  EXPECT_EQ(property->value()->type(), u"uri");
  const auto values = std::static_pointer_cast<VCardMultiValue>(property->value())->values();
  ASSERT_EQ(values.value().size(), 2U);
  EXPECT_NE(std::dynamic_pointer_cast<VCardURIValue>(values->front()), nullptr);
}

TEST(ContentLine, handsEncodingAndCharsetToTheValue) {
  const auto plain = parsed(u"NOTE:a=3Db", 2);
  EXPECT_FALSE(plain->value()->quotedPrintable());
  EXPECT_FALSE(plain->value()->charset());
  EXPECT_EQ(plain->textValue(), u"a=3Db");

  const auto encoded = parsed(u"NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:a=C3=A9", 2);
  EXPECT_TRUE(encoded->value()->quotedPrintable());
  EXPECT_EQ(encoded->value()->charset(), u"UTF-8");
  EXPECT_EQ(encoded->textValue(), u"a\u00E9");

  const auto second = parsed(u"NOTE;ENCODING=8bit,quoted-printable:a=3Db", 2);
  EXPECT_FALSE(second->value()->quotedPrintable());
}

TEST(ContentLine, takesTheBareQuotedPrintableTokenForAType) {
  const auto property = parsed(u"NOTE;QUOTED-PRINTABLE:a=3Db", 2);
  EXPECT_EQ(valuesOf(property, u"TYPE"), TextList{u"QUOTED-PRINTABLE"});
  EXPECT_FALSE(property->value()->quotedPrintable());
  EXPECT_EQ(property->textValue(), u"a=3Db");
}

TEST(ContentLine, keepsNothingOfAnEarlierLine) {
  DateFormatter formatter("en_US_POSIX");
  VCardProperty property;
  ASSERT_TRUE(property.parse(u"g.TEL;TYPE=home:1", 3, &formatter));
  ASSERT_TRUE(property.parse(u"NOTE:2", 3, &formatter));
  EXPECT_FALSE(property.group());
  EXPECT_EQ(property.name(), u"NOTE");
  EXPECT_FALSE(property.parameterDict());
  EXPECT_EQ(property.textValue(), u"2");
}

TEST(ContentLine, holdsLoneSurrogatesLikeAnyOtherText) {
  const Text lone(1, char16_t{0xD800});
  const auto property = parsed(u"X-A;X-B=" + lone + u":" + lone);
  ASSERT_NE(property, nullptr);
  EXPECT_EQ(valuesOf(property, u"X-B"), TextList{lone});
  EXPECT_EQ(property->textValue(), lone);
}

TEST(ContentLineDeathTest, needsAFormatter) {
  VCardProperty property;
  EXPECT_DEATH(static_cast<void>(property.parse(u"FN:x", 3, nullptr)), "Formatter is nil");
  EXPECT_DEATH(static_cast<void>(property.parse(u"", 3, nullptr)), "Formatter is nil");
}

} // namespace
} // namespace cardwright
