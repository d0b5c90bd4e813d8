#include "cardwright/date_formatter.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_parameter.h"
#include "cardwright/vcard_property.h"
#include "cardwright/vcard_value.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace cardwright {
namespace {

constexpr VersionCode kVersions[] = {-1, 0, 1, 2, 3, 4, 5, 99};

struct StatedType {
  TextView property;
  TextView type;                     ///< of its value
  std::optional<TextView> parameter; ///< VALUE before
};

/// The VALUE parameter after its upkeep.
TextList kept(const StatedType& stated, VersionCode version) {
  const auto property =
      VCardProperty::propertyWithName(stated.property, VCardValue::valueWithType(stated.type));
  if (stated.parameter) {
    property->addParameter(VCardParameter::parameterWithName(u"value", *stated.parameter));
  }
  property->addValueParameterIfNecessaryForVersion(version);
  const auto parameter = property->parameterWithName(u"VALUE");
  return parameter == nullptr ? TextList{} : parameter->values();
}

TEST(ValueParameter, goesWhereTheTypeIsTheDefault) {
  for (const VersionCode version : kVersions) {
    EXPECT_EQ(kept({u"FN", u"text", u"text"}, version), TextList{});
    EXPECT_EQ(kept({u"fn", u"TEXT", u"uri"}, version), TextList{});
    EXPECT_EQ(kept({u"URL", u"uri", std::nullopt}, version), TextList{});
    EXPECT_EQ(kept({u"X-UNKNOWN", u"text", u"text"}, version), TextList{});
    EXPECT_EQ(kept({u"ADR", u"Address", u"text"}, version), TextList{});
    EXPECT_EQ(kept({u"REV", u"timestamp", u"timestamp"}, version), TextList{});
  }
}

TEST(ValueParameter, goesWhereTheStructuredDefaultImpliesText) {
  for (const VersionCode version : kVersions) {
    EXPECT_EQ(kept({u"ADR", u"text", u"text"}, version), TextList{});
    EXPECT_EQ(kept({u"N", u"text", u"text"}, version), TextList{});
    EXPECT_EQ(kept({u"GENDER", u"text", u"x"}, version), TextList{});
  }
}

TEST(ValueParameter, goesFromDatesThatMayBeTimes) {
  for (const VersionCode version : kVersions) {
    EXPECT_EQ(kept({u"BDAY", u"date", u"date"}, version), TextList{});
    EXPECT_EQ(kept({u"ANNIVERSARY", u"text", u"text"}, version), TextList{});
  }
}

TEST(ValueParameter, statesATypeThatIsNotTheDefault) {
  for (const VersionCode version : kVersions) {
    EXPECT_EQ(kept({u"FN", u"uri", std::nullopt}, version), TextList{u"uri"});
    EXPECT_EQ(kept({u"X-A", u"Boolean", std::nullopt}, version), TextList{u"Boolean"});
    EXPECT_EQ(kept({u"X-A", u"boolean", u"BOOLEAN"}, version), TextList{u"BOOLEAN"});
    EXPECT_EQ(kept({u"X-ABDATE", u"timestamp", std::nullopt}, version), TextList{u"timestamp"});
  }
}

TEST(ValueParameter, dependsOnTheVersionWhereTheDefaultDoes) {
  for (const VersionCode version : kVersions) {
    const bool isNew = version >= 4;
    EXPECT_EQ(kept({u"PHOTO", u"uri", u"uri"}, version), isNew ? TextList{} : TextList{u"uri"});
    EXPECT_EQ(kept({u"PHOTO", u"text", std::nullopt}, version), TextList{u"text"});
    EXPECT_EQ(kept({u"TZ", u"utc-offset", std::nullopt}, version),
              isNew ? TextList{u"utc-offset"} : TextList{});
    EXPECT_EQ(kept({u"TZ", u"text", u"text"}, version), isNew ? TextList{} : TextList{u"text"});
    EXPECT_EQ(kept({u"GEO", u"Geo3.0", std::nullopt}, version),
              isNew ? TextList{u"Geo3.0"} : TextList{});
    EXPECT_EQ(kept({u"GEO", u"text", u"text"}, version), isNew ? TextList{u"text"} : TextList{});
  }
}

TEST(ValueParameter, isAddedToOneThatStatesAnotherType) {
  EXPECT_EQ(kept({u"FN", u"uri", u"date"}, 3), (TextList{u"date", u"uri"}));
}

TEST(ValueParameter, staysWhereTheValueHasNoType) {
  const auto property = VCardProperty::propertyWithName(u"FN", std::make_shared<VCardValue>());
  property->addParameter(VCardParameter::parameterWithName(u"VALUE", u"x"));
  property->addValueParameterIfNecessaryForVersion(3);
  EXPECT_EQ(property->valueOfParameterWithName(u"VALUE"), u"x");

  VCardProperty empty;
  empty.setName(u"FN");
  empty.addValueParameterIfNecessaryForVersion(3);
  EXPECT_FALSE(empty.parameterDict());
  empty.setName(u"BDAY");
  empty.addParameter(VCardParameter::parameterWithName(u"VALUE", u"x"));
  empty.addValueParameterIfNecessaryForVersion(3);
  EXPECT_EQ(empty.parameterWithName(u"VALUE"), nullptr);
}

TEST(ValueParameter, leavesOtherParametersAlone) {
  const auto property = VCardProperty::propertyWithName(u"FN", TextView(u"x"));
  property->addParameter(VCardParameter::parameterWithName(u"VALUE", u"text"));
  property->addParameter(VCardParameter::parameterWithName(u"TYPE", u"home"));
  property->addValueParameterIfNecessaryForVersion(4);
  EXPECT_EQ(property->parametersInSortOrder(), TextList{u"TYPE"});
}

} // namespace
} // namespace cardwright
