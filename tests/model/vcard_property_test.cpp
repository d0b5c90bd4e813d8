#include "base/case.h"
#include "cardwright/date_formatter.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_property.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "cardwright/vcard_x_value.h"
#include "support/text_printer.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>

namespace cardwright {
namespace {

std::shared_ptr<VCardProperty> propertyWithText(TextView name, TextView text) {
  return VCardProperty::propertyWithName(name, std::optional<TextView>(text));
}

std::shared_ptr<VCardProperty> propertyNamed(TextView name) {
  return VCardProperty::propertyWithName(name, std::shared_ptr<VCardValue>());
}

TEST(VCardProperty, isMadeWithExactlyTheNameAndValueGiven) {
  const auto value = VCardTextValue::valueWithText(TextView(u"a"));
  const auto property = VCardProperty::propertyWithName(u"Fn", value);
  EXPECT_EQ(property->name(), u"Fn");
  EXPECT_EQ(property->value(), value);
  EXPECT_FALSE(property->group());
  EXPECT_FALSE(property->parameterDict());
}

TEST(VCardProperty, wrapsATextInATextValue) {
  const auto property = propertyWithText(u"note", u"a;b");
  EXPECT_EQ(property->name(), u"note");
  ASSERT_NE(property->value(), nullptr);
  EXPECT_EQ(property->value()->type(), TextView(u"text"));
  EXPECT_NE(dynamic_cast<VCardTextValue*>(property->value().get()), nullptr);
  EXPECT_EQ(property->textValue(), TextView(u"a;b"));

  const auto absent = VCardProperty::propertyWithName(u"NOTE", std::optional<TextView>());
  ASSERT_NE(absent->value(), nullptr) << "a value without a text";
  EXPECT_FALSE(absent->textValue());
  EXPECT_EQ(propertyWithText(u"NOTE", u"")->textValue(), TextView());
}

TEST(VCardProperty, hasNothingBeforeItIsFilled) {
  const VCardProperty property;
  EXPECT_EQ(property.name(), u"");
  EXPECT_FALSE(property.group());
  EXPECT_EQ(property.value(), nullptr);
  EXPECT_FALSE(property.parameterDict());
  EXPECT_FALSE(property.textValue());
  EXPECT_FALSE(property.dateValue());
  EXPECT_EQ(property.versionValue(), 0U);
  EXPECT_EQ(property.parameterWithName(u"TYPE"), nullptr);
  EXPECT_FALSE(property.valueOfParameterWithName(u"TYPE"));
  EXPECT_TRUE(property.xParameters().empty());
  EXPECT_TRUE(property.parametersInSortOrder().empty());
  EXPECT_FALSE(property.isMultiValueProperty());
}

TEST(VCardProperty, storesWhatItsSettersAreGiven) {
  const auto property = propertyWithText(u"TEL", u"1");
  property->setName(u"eMail");
  EXPECT_EQ(property->name(), u"eMail");
  property->setGroup(u"Item1");
  EXPECT_EQ(property->group(), TextView(u"Item1"));
  property->setGroup(u"");
  EXPECT_EQ(property->group(), TextView()) << "an empty group is a group";
  property->setGroup(std::nullopt);
  EXPECT_FALSE(property->group());
  const auto value = std::make_shared<VCardNValue>();
  property->setValue(value);
  EXPECT_EQ(property->value(), value);
  property->setValue(nullptr);
  EXPECT_EQ(property->value(), nullptr);
  EXPECT_FALSE(property->textValue());
}

TEST(VCardProperty, mayBeGivenPartsOfItself) {
  const auto property = propertyWithText(u"X-0123456789-0123456789", u"1");
  property->setGroup(property->name());
  property->setName(property->name().substr(2));
  EXPECT_EQ(property->name(), u"0123456789-0123456789");
  property->setGroup(property->group()->substr(0, 3));
  EXPECT_EQ(property->group(), TextView(u"X-0"));
}

// Parameters

TEST(VCardProperty, mergesParametersOfOneName) {
  const auto property = propertyNamed(u"TEL");
  const auto first = VCardParameter::parameterWithName(u"TYPE", u"home");
  property->addParameter(first);
  property->addParameter(VCardParameter::parameterWithName(u"type", u"work"));
  ASSERT_EQ(property->parameterDict()->size(), 1U);
  EXPECT_EQ(property->parameterWithName(u"TYPE"), first) << "the first object stays";
  EXPECT_EQ(first->values(), (TextList{u"home", u"work"}));
  EXPECT_EQ(property->valueOfParameterWithName(u"Type"), TextView(u"home"));
}

TEST(VCardProperty, mergesValuesWithoutDecodingThemAgain) {
  const auto property = propertyNamed(u"TEL");
  property->addParameter(VCardParameter::parameterWithName(u"X-A", u"^^n"));
  property->addParameter(VCardParameter::parameterWithName(u"X-A", u"^^n"));
  EXPECT_EQ(property->parameterWithName(u"X-A")->values(), (TextList{u"^n", u"^n"}));
}

TEST(VCardProperty, leavesAMergedParameterAlone) {
  const auto property = propertyNamed(u"TEL");
  const auto first = VCardParameter::parameterWithName(u"TYPE", u"a");
  const auto second = VCardParameter::parameterWithName(u"TYPE", u"b");
  property->addParameter(first);
  property->addParameter(second);
  second->addValue(u"c");
  EXPECT_EQ(first->values(), (TextList{u"a", u"b"}));
  EXPECT_EQ(second->values(), (TextList{u"b", u"c"}));
}

TEST(VCardProperty, doublesTheValuesOfAParameterAddedToItself) {
  const auto property = propertyNamed(u"TEL");
  const auto parameter = VCardParameter::parameterWithName(u"TYPE", Text(50, u'a'));
  parameter->addValue(u"b");
  property->addParameter(parameter);
  property->addParameter(parameter);
  EXPECT_EQ(parameter->values(), (TextList{Text(50, u'a'), u"b", Text(50, u'a'), u"b"}));
}

TEST(VCardProperty, keysParametersByTheirUpperCasedName) {
  const auto property = propertyNamed(u"TEL");
  const auto parameter = VCardParameter::parameterWithName(u"x", u"1");
  parameter->setName(u"stra\u00DFe");
  property->addParameter(parameter);
  EXPECT_EQ(property->parameterDict()->begin()->first, u"STRASSE");
  EXPECT_EQ(property->parameterWithName(u"STRASSE"), parameter);
  EXPECT_EQ(property->parameterWithName(u"Stra\u00DFe"), parameter);
  EXPECT_EQ(parameter->name(), u"stra\u00DFe") << "its own name stays";
  EXPECT_EQ(property->parameterWithName(u"STRASS"), nullptr);
}

TEST(VCardProperty, ignoresAParameterThatIsNone) {
  const auto property = propertyNamed(u"TEL");
  property->addParameter(nullptr);
  EXPECT_FALSE(property->parameterDict());
}

TEST(VCardProperty, handsOutACopyOfItsParameterDictionary) {
  const auto property = propertyNamed(u"TEL");
  property->addParameter(VCardParameter::parameterWithName(u"TYPE", u"home"));
  VCardParameterDict dict = *property->parameterDict();
  EXPECT_EQ(dict.at(u"TYPE"), property->parameterWithName(u"TYPE")) << "of the same objects";
  dict.clear();
  EXPECT_NE(property->parameterWithName(u"TYPE"), nullptr);
}

TEST(VCardProperty, takesADictionaryAsItIs) {
  const auto property = propertyNamed(u"TEL");
  const auto lower = VCardParameter::parameterWithName(u"TYPE", u"lower");
  const auto upper = VCardParameter::parameterWithName(u"OTHER", u"upper");
  property->addParameter(VCardParameter::parameterWithName(u"PREF", u"1"));
  property->setParameterDict(VCardParameterDict{{u"type", lower}, {u"TYPE", upper}});
  EXPECT_EQ(property->parameterDict(), (VCardParameterDict{{u"type", lower}, {u"TYPE", upper}}));
  EXPECT_EQ(property->parameterWithName(u"type"), upper) << "looked up by the upper-cased name";
  EXPECT_EQ(property->parameterWithName(u"PREF"), nullptr) << "what was there is gone";
  property->setParameterDict(VCardParameterDict());
  EXPECT_EQ(property->parameterDict(), VCardParameterDict());
  property->setParameterDict(std::nullopt);
  EXPECT_FALSE(property->parameterDict());
  property->setParameterDict(property->parameterDict());
  EXPECT_FALSE(property->parameterDict());
}

TEST(VCardProperty, survivesADictionaryWithoutObjects) {
  const auto property = propertyNamed(u"TEL");
  property->setParameterDict(VCardParameterDict{{u"TYPE", nullptr}, {u"X-A", nullptr}});
  EXPECT_EQ(property->parameterWithName(u"TYPE"), nullptr);
  EXPECT_FALSE(property->valueOfParameterWithName(u"TYPE"));
  EXPECT_TRUE(property->xParameters().empty());
  EXPECT_EQ(property->description(), u"TEL:\r\n");
  const auto parameter = VCardParameter::parameterWithName(u"TYPE", u"home");
  property->addParameter(parameter);
  EXPECT_EQ(property->parameterWithName(u"TYPE"), parameter);
}

TEST(VCardProperty, removesParametersByName) {
  const auto property = propertyNamed(u"TEL");
  property->removeParameterWithName(u"TYPE");
  EXPECT_FALSE(property->parameterDict()) << "nothing is made for it";
  property->addParameter(VCardParameter::parameterWithName(u"TYPE", u"home"));
  property->removeParameterWithName(u"PREF");
  EXPECT_NE(property->parameterWithName(u"TYPE"), nullptr);
  property->removeParameterWithName(u"tYpe");
  EXPECT_EQ(property->parameterWithName(u"TYPE"), nullptr);
  EXPECT_EQ(property->parameterDict(), VCardParameterDict()) << "present, but empty";
}

TEST(VCardProperty, givesTheFirstValueOfAParameter) {
  const auto property = propertyNamed(u"TEL");
  EXPECT_FALSE(property->valueOfParameterWithName(u"TYPE"));
  const auto parameter = std::make_shared<VCardParameter>();
  parameter->setName(u"TYPE");
  property->addParameter(parameter);
  EXPECT_FALSE(property->valueOfParameterWithName(u"TYPE")) << "it has none";
  parameter->addValue(u"");
  EXPECT_EQ(property->valueOfParameterWithName(u"type"), TextView());
}

TEST(VCardProperty, listsItsExtensionParameters) {
  const auto property = propertyNamed(u"TEL");
  EXPECT_TRUE(property->xParameters().empty());
  const auto service = VCardParameter::parameterWithName(u"x-service-type", u"a");
  const auto bare = VCardParameter::parameterWithName(u"X-", u"b");
  property->addParameter(VCardParameter::parameterWithName(u"TYPE", u"home"));
  property->addParameter(service);
  property->addParameter(VCardParameter::parameterWithName(u"X", u"c"));
  property->addParameter(VCardParameter::parameterWithName(u"XY", u"d"));
  property->addParameter(bare);
  VCardParameterList found = property->xParameters();
  EXPECT_TRUE(
      std::is_permutation(found.begin(), found.end(), VCardParameterList{service, bare}.begin()));
  ASSERT_EQ(found.size(), 2U);
  found.clear();
  EXPECT_EQ(property->xParameters().size(), 2U) << "a new list each time";
}

TEST(VCardProperty, goesByTheKeysForExtensionParameters) {
  const auto property = propertyNamed(u"TEL");
  const auto parameter = VCardParameter::parameterWithName(u"X-A", u"1");
  property->setParameterDict(VCardParameterDict{{u"x-a", parameter}});
  EXPECT_TRUE(property->xParameters().empty()) << "the key is compared as it is";
  property->setParameterDict(
      VCardParameterDict{{u"X-KEY", VCardParameter::parameterWithName(u"TYPE", u"1")}});
  EXPECT_EQ(property->xParameters().size(), 1U);
}

TEST(VCardProperty, holdsManyParameters) {
  expectLinear(5'000, [](std::size_t size) {
    const auto property = propertyNamed(u"TEL");
    for (std::size_t i = 0; i < size; ++i) {
      const std::string number = std::to_string(i);
      property->addParameter(
          VCardParameter::parameterWithName(u"x-" + Text(number.begin(), number.end()), u"1"));
      property->addParameter(VCardParameter::parameterWithName(u"TYPE", u"1"));
    }
    EXPECT_EQ(property->xParameters().size(), size);
    EXPECT_EQ(property->parameterWithName(u"type")->values().size(), size);
    EXPECT_EQ(property->parameterDict()->size(), size + 1);
  });
}

// What a property says about itself

TEST(VCardProperty, knowsItsListsByTheirExactNames) {
  for (const TextView name : {u"NICKNAME", u"CATEGORIES", u"X-QUILLAN-LOCAL-CATEGORIES"}) {
    EXPECT_TRUE(propertyNamed(name)->isMultiValueProperty());
    EXPECT_FALSE(propertyNamed(lowerCased(name))->isMultiValueProperty());
    EXPECT_FALSE(propertyNamed(Text(name) + u"S")->isMultiValueProperty());
  }
  for (const TextView name : {u"", u"N", u"ORG", u"Nickname", u"CATEGORY", u"TEL"}) {
    EXPECT_FALSE(propertyNamed(name)->isMultiValueProperty());
  }
}

TEST(VCardProperty, givesTheTextOfTextValuesOnly) {
  const auto textOf = [](const std::shared_ptr<VCardValue>& value) {
    return VCardProperty::propertyWithName(u"X", value)->textValue();
  };
  EXPECT_EQ(textOf(VCardTextValue::valueWithText(TextView(u"a"))), TextView(u"a"));
  EXPECT_EQ(textOf(VCardURIValue::valueWithText(TextView(u"u:b"))), TextView(u"u:b"));
  EXPECT_EQ(textOf(VCardXValue::valueWithText(TextView(u"c"))), TextView(u"c"));
  EXPECT_FALSE(textOf(std::make_shared<VCardTextValue>()));
  EXPECT_FALSE(textOf(nullptr));
  EXPECT_FALSE(textOf(std::make_shared<VCardNValue>()));
  EXPECT_FALSE(textOf(std::make_shared<VCardValue>()));
  EXPECT_FALSE(textOf(VCardDateTimeValue::valueWithType(TextView(u"date"))));
  const auto list = VCardMultiValue::valueWithType(TextView(u"text"));
  list->addTextValue(TextView(u"a"));
  EXPECT_FALSE(textOf(list));
}

TEST(VCardProperty, givesTheInstantOfDateValuesOnly) {
  const auto dateOf = [](const std::shared_ptr<VCardValue>& value) {
    return VCardProperty::propertyWithName(u"REV", value)->dateValue();
  };
  const auto date = VCardDateTimeValue::valueWithType(TextView(u"timestamp"));
  DateFormatter formatter("en_US_POSIX");
  ASSERT_TRUE(date->parse(u"19700102T000001Z", 4, &formatter));
  EXPECT_EQ(dateOf(date), std::chrono::sys_seconds(std::chrono::seconds(86401)));
  EXPECT_FALSE(dateOf(nullptr));
  EXPECT_FALSE(dateOf(VCardTextValue::valueWithText(TextView(u"19700102"))));
  EXPECT_FALSE(dateOf(std::make_shared<VCardUTCOffsetValue>()));
}

TEST(VCardProperty, readsTheVersionFromAVersionPropertyOnly) {
  struct Row {
    TextView name;
    TextView text;
    std::uint64_t version;
  };
  constexpr Row kRows[] = {
      {u"VERSION", u"2.1", 2},
      {u"VERSION", u"3.0", 3},
      {u"version", u"3.0", 3},
      {u"VerSion", u"4.0", 4},
      {u"VER\u017FION", u"4.0", 4},
      {u"VERSION", u"4.5", 4},
      {u"VERSION", u" \t4.0", 4},
      {u"VERSION", u"4.0 beta", 4},
      {u"VERSION", u"+3", 3},
      {u"VERSION", u"0.3e1", 3},
      {u"VERSION", u"30e-1", 3},
      {u"VERSION", u"4,0", 4},
      {u"VERSION", u"", 0},
      {u"VERSION", u"four", 0},
      {u"VERSION", u"v4", 0},
      {u"VERSION", u".9", 0},
      {u"VERSION", u"-0.9", 0},
      {u"VERSION", u"-1", 0},
      {u"VERSION", u"-4.0", 0},
      {u"VERSION", u"5", 5},
      {u"VERSION", u"1e3", 1000},
      {u"VERSION", u"18446744073709549568", 18446744073709549568U},
      {u"VERSION", u"18446744073709551616", 0},
      {u"VERSION", u"1e400", 0},
      {u"VERSION", u"-1e400", 0},
      {u"FN", u"4.0", 0},
      {u"VERSION ", u"4.0", 0},
      {u"", u"4.0", 0},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(propertyWithText(row.name, row.text)->versionValue(), row.version)
        << testing::PrintToString(row.name) << ' ' << testing::PrintToString(row.text);
  }
  EXPECT_EQ(propertyNamed(u"VERSION")->versionValue(), 0U);
  EXPECT_EQ(
      VCardProperty::propertyWithName(u"VERSION", std::make_shared<VCardNValue>())->versionValue(),
      0U);
  EXPECT_EQ(VCardProperty::propertyWithName(u"VERSION", std::optional<TextView>())->versionValue(),
            0U);
  EXPECT_EQ(
      VCardProperty::propertyWithName(u"VERSION", VCardURIValue::valueWithText(TextView(u"4.0")))
          ->versionValue(),
      4U)
      << "a URI is a text";
}

TEST(VCardProperty, isMadeForAVersion) {
  constexpr TextView kTexts[] = {u"2.1", u"3.0", u"4.0"};
  for (VersionCode version = 2; version <= 4; ++version) {
    const auto property = VCardProperty::propertyForVersion(version);
    EXPECT_EQ(property->name(), u"VERSION");
    EXPECT_EQ(property->textValue(), kTexts[version - 2]);
    EXPECT_EQ(property->value()->type(), TextView(u"text"));
    EXPECT_EQ(property->versionValue(), static_cast<std::uint64_t>(version));
    EXPECT_FALSE(property->group());
    EXPECT_NE(VCardProperty::propertyForVersion(version), property) << "a new one each time";
  }
}

TEST(VCardProperty, isMadeForNoOtherVersion) {
  for (const VersionCode version :
       {std::numeric_limits<VersionCode>::min(), VersionCode{-1}, VersionCode{0}, VersionCode{1},
        VersionCode{5}, std::numeric_limits<VersionCode>::max()}) {
    try {
      (void)VCardProperty::propertyForVersion(version);
      FAIL() << version;
    } catch (const std::invalid_argument& error) {
      EXPECT_EQ(error.what(), "vCard: invalid version: " + std::to_string(version));
    }
  }
}

// Default types

struct DefaultType {
  TextView name;
  TextView below4;
  TextView from4;
};

constexpr DefaultType kDefaultTypes[] = {
    {u"ADR", u"Address", u"Address"},
    {u"N", u"N", u"N"},
    {u"ORG", u"Org", u"Org"},
    {u"GENDER", u"Gender", u"Gender"},
    {u"X-CUSTOM", u"Custom", u"Custom"},
    {u"ANNIVERSARY", u"date-and-or-time", u"date-and-or-time"},
    {u"BDAY", u"date-and-or-time", u"date-and-or-time"},
    {u"DEATHDATE", u"date-and-or-time", u"date-and-or-time"},
    {u"X-ABDate", u"date", u"date"},
    {u"X-ANNIVERSARY", u"date", u"date"},
    {u"X-CUSTOMDATE", u"date", u"date"},
    {u"REV", u"timestamp", u"timestamp"},
    {u"X-CREATED", u"timestamp", u"timestamp"},
    {u"X-MS-CARDPICTURE", u"BINARY", u"BINARY"},
    {u"CALADRURI", u"uri", u"uri"},
    {u"CALURI", u"uri", u"uri"},
    {u"FBURL", u"uri", u"uri"},
    {u"GEO", u"Geo3.0", u"uri"},
    {u"IMPP", u"uri", u"uri"},
    {u"KEY", u"BINARY", u"uri"},
    {u"LOGO", u"BINARY", u"uri"},
    {u"MEMBER", u"uri", u"uri"},
    {u"ORG-DIRECTORY", u"uri", u"uri"},
    {u"PHOTO", u"BINARY", u"uri"},
    {u"RELATED", u"uri", u"uri"},
    {u"SOUND", u"BINARY", u"uri"},
    {u"SOURCE", u"uri", u"uri"},
    {u"URL", u"uri", u"uri"},
    {u"X-SOCIALPROFILE", u"uri", u"uri"},
    {u"X-ADDRESSBOOKSERVER-MEMBER", u"uri", u"uri"},
    {u"X-QUILLAN-ATTACH", u"uri", u"uri"},
    {u"AGENT", u"text", u"text"},
    {u"BIRTHPLACE", u"text", u"text"},
    {u"CATEGORIES", u"text", u"text"},
    {u"CLASS", u"text", u"text"},
    {u"CLIENTPIDMAP", u"text", u"text"},
    {u"DEATHPLACE", u"text", u"text"},
    {u"EMAIL", u"text", u"text"},
    {u"EXPERTISE", u"text", u"text"},
    {u"FN", u"text", u"text"},
    {u"HOBBY", u"text", u"text"},
    {u"INTEREST", u"text", u"text"},
    {u"KIND", u"text", u"text"},
    {u"LABEL", u"text", u"text"},
    {u"LANG", u"text", u"text"},
    {u"MAILER", u"text", u"text"},
    {u"NAME", u"text", u"text"},
    {u"NICKNAME", u"text", u"text"},
    {u"NOTE", u"text", u"text"},
    {u"PRODID", u"text", u"text"},
    {u"PROFILE", u"text", u"text"},
    {u"ROLE", u"text", u"text"},
    {u"SORT-STRING", u"text", u"text"},
    {u"TEL", u"text", u"text"},
    {u"TITLE", u"text", u"text"},
    {u"TZ", u"utc-offset", u"text"},
    {u"UID", u"text", u"text"},
    {u"VERSION", u"text", u"text"},
    {u"XML", u"text", u"text"},
};

TEST(DefaultTypes, belongToFiftyNineNames) {
  EXPECT_EQ(std::size(kDefaultTypes), 59U);
}

TEST(DefaultTypes, dependOnNameAndVersionInAnyCase) {
  for (const DefaultType& row : kDefaultTypes) {
    for (const Text& name : {Text(row.name), upperCased(row.name), lowerCased(row.name)}) {
      const auto property = propertyNamed(name);
      for (const VersionCode version :
           {std::numeric_limits<VersionCode>::min(), VersionCode{-1}, VersionCode{0},
            VersionCode{1}, VersionCode{2}, VersionCode{3}}) {
        EXPECT_EQ(property->defaultTypeForVersion(version), row.below4)
            << testing::PrintToString(name) << ' ' << version;
      }
      for (const VersionCode version :
           {VersionCode{4}, VersionCode{5}, std::numeric_limits<VersionCode>::max()}) {
        EXPECT_EQ(property->defaultTypeForVersion(version), row.from4)
            << testing::PrintToString(name) << ' ' << version;
      }
    }
  }
}

TEST(DefaultTypes, areTextForOtherNames) {
  for (const TextView name : {u"X-FOO", u"", u"PHOTOS", u"GE", u"X-ABLabel", u" GEO", u"\u00C9"}) {
    for (VersionCode version = -1; version <= 5; ++version) {
      EXPECT_EQ(propertyNamed(name)->defaultTypeForVersion(version), u"text");
    }
  }
}

TEST(DefaultTypes, compareNamesByFullCaseFolding) {
  EXPECT_EQ(propertyNamed(u"\u212Aey")->defaultTypeForVersion(3), u"BINARY");
  EXPECT_EQ(propertyNamed(u"\u212Aey")->defaultTypeForVersion(4), u"uri");
  EXPECT_EQ(propertyNamed(u"\u017FOUND")->defaultTypeForVersion(2), u"BINARY");
}

TEST(DefaultTypes, areThereBeforeAnyInitialization) {
  VCardProperty::initialize();
  VCardProperty::initialize();
  EXPECT_EQ(propertyNamed(u"ADR")->defaultTypeForVersion(3), u"Address");
}

TEST(DefaultTypes, nameClassesThatExist) {
  for (const DefaultType& row : kDefaultTypes) {
    for (const TextView type : {row.below4, row.from4}) {
      const auto value = VCardValue::valueWithType(type);
      EXPECT_EQ(dynamic_cast<VCardXValue*>(value.get()), nullptr)
          << testing::PrintToString(type) << " has a class of its own";
    }
  }
}

// Writing and reading are tested with the writer and the reader; here is what the base adds.
TEST(VCardProperty, isDescribedByItsContentLine) {
  const auto property = propertyWithText(u"NOTE", u"a;b,c");
  property->setGroup(u"item1");
  property->addParameter(VCardParameter::parameterWithName(u"language", u"de"));
  EXPECT_EQ(property->description(), u"item1.NOTE;LANGUAGE=de:a;b\\,c\r\n");
}

} // namespace
} // namespace cardwright
