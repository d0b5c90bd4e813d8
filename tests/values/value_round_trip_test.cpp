#include "cardwright/vcard_address_value.h"
#include "cardwright/vcard_custom_value.h"
#include "cardwright/vcard_gender_value.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_org_value.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vcard_x_value.h"
#include "support/combinations.h"
#include "support/random_source.h"
#include "support/seed.h"
#include "support/text_printer.h"
#include "support/time_growth.h"
#include "support/value_texts.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace cardwright {
namespace {

constexpr std::array<VersionCode, 6> kVersions = {0, 1, 2, 3, 4, 5};

/// What texts are made of: all that has a meaning in values, and what only looks like it. CR is
/// written as a line feed, so it is not among them.
const Text kPieces[] = {u"a",   u"B",      u"7",          u"\\",     u";",         u",",
                        u":",   u"\n",     u"n",          u"N",      u"r",         u"=",
                        u"=3B", u"^",      u"^n",         u"\"",     u"-",         u"+",
                        u" ",   u"\u00E9", u"\u4E2D",     u"\u0301", u"\uD7FE",    u"\uFFFC",
                        u"\t",  u"\\n",    u"\U0001F600", u"\\;",    u"\U00010000"};

class ValueMaker {
 public:
  explicit ValueMaker(std::uint64_t seed) : m_random(seed) {}

  Text text() {
    Text text;
    for (std::size_t i = m_random.below(6); i > 0; --i) {
      text += m_random.oneOf(kPieces);
    }
    return text;
  }

  /// A text that stays itself when blanks and line breaks are trimmed from it.
  Text trimmedText() {
    for (;;) {
      Text candidate = text();
      const TextView blanks = u" \t\n";
      if (candidate.empty() || (blanks.find(candidate.front()) == TextView::npos &&
                                blanks.find(candidate.back()) == TextView::npos)) {
        return candidate;
      }
    }
  }

  /// Absent, or a list of texts. A list of one empty text is written like an absent one.
  std::optional<TextList> slot() {
    if (m_random.oneIn(3)) {
      return std::nullopt;
    }
    TextList texts;
    for (std::size_t i = 1 + m_random.below(3); i > 0; --i) {
      texts.push_back(trimmedText());
    }
    if (texts == TextList{u""}) {
      return std::nullopt;
    }
    return texts;
  }

  VersionCode version() { return m_random.oneOf(kVersions); }
  RandomSource& random() { return m_random; }

 private:
  RandomSource m_random;
};

const int kRounds = kTimesAreMeaningful ? 30'000 : 3'000;

/// A new value of the class that reads what the value writes.
template <typename Value>
std::shared_ptr<Value> readBack(const Value& value, VersionCode version) {
  return parsed<Value>(written(value, version), version);
}

template <typename Value>
class TextRoundTrip : public testing::Test {};

using TextClasses = testing::Types<VCardTextValue, VCardURIValue, VCardXValue>;
TYPED_TEST_SUITE(TextRoundTrip, TextClasses);

TYPED_TEST(TextRoundTrip, keepsEveryText) {
  ValueMaker make(testSeed());
  for (int i = 0; i < kRounds; ++i) {
    const Text text = make.text();
    const VersionCode version = make.version();
    const auto value = TypeParam::valueWithText(TextView(text));
    ASSERT_EQ(readBack(*value, version)->text(), TextView(text))
        << testing::PrintToString(text) << ' ' << version;
  }
}

TEST(ValueRoundTrip, keepsEveryShortText) {
  forEachCombination(Text(u"a\\;,:\nnN\" =^"), 4, [](const Text& text) {
    for (const VersionCode version : {2, 3, 4}) {
      ASSERT_EQ(readBack(*VCardTextValue::valueWithText(TextView(text)), version)->text(),
                TextView(text))
          << testing::PrintToString(text);
    }
  });
}

TEST(ValueRoundTrip, makesLineFeedsOfAllLineEnds) {
  for (const VersionCode version : kVersions) {
    const auto text = VCardTextValue::valueWithText(TextView(u"a\r\nb\rc\nd\n\re"));
    EXPECT_EQ(readBack(*text, version)->text(), TextView(u"a\nb\nc\nd\n\ne"));
  }
}

TEST(ValueRoundTrip, keepsNames) {
  ValueMaker make(testSeed());
  for (int i = 0; i < kRounds; ++i) {
    VCardNValue name;
    name.setLast(make.slot());
    name.setFirst(make.slot());
    name.setMiddle(make.slot());
    name.setPrefix(make.slot());
    name.setSuffix(make.slot());
    const auto again = readBack(name, make.version());
    ASSERT_EQ(again->last(), name.last()) << testing::PrintToString(written(name));
    ASSERT_EQ(again->first(), name.first()) << testing::PrintToString(written(name));
    ASSERT_EQ(again->middle(), name.middle()) << testing::PrintToString(written(name));
    ASSERT_EQ(again->prefix(), name.prefix()) << testing::PrintToString(written(name));
    ASSERT_EQ(again->suffix(), name.suffix()) << testing::PrintToString(written(name));
  }
}

TEST(ValueRoundTrip, keepsAddresses) {
  ValueMaker make(testSeed());
  for (int i = 0; i < kRounds; ++i) {
    VCardAddressValue address;
    address.setPoBox(make.slot());
    address.setExtended(make.slot());
    address.setStreet(make.slot());
    address.setLocality(make.slot());
    address.setRegion(make.slot());
    address.setPostalCode(make.slot());
    address.setCountry(make.slot());
    const auto again = readBack(address, make.version());
    ASSERT_EQ(again->poBox(), address.poBox()) << testing::PrintToString(written(address));
    ASSERT_EQ(again->extended(), address.extended()) << testing::PrintToString(written(address));
    ASSERT_EQ(again->street(), address.street()) << testing::PrintToString(written(address));
    ASSERT_EQ(again->locality(), address.locality()) << testing::PrintToString(written(address));
    ASSERT_EQ(again->region(), address.region()) << testing::PrintToString(written(address));
    ASSERT_EQ(again->postalCode(), address.postalCode());
    ASSERT_EQ(again->country(), address.country()) << testing::PrintToString(written(address));
  }
}

TEST(ValueRoundTrip, keepsOrganisations) {
  ValueMaker make(testSeed());
  for (int i = 0; i < kRounds; ++i) {
    TextList parts = {make.text()};
    for (std::size_t more = make.random().below(5); more > 0; --more) {
      parts.push_back(make.text());
    }
    VCardOrgValue organisation;
    organisation.setParts(parts);
    ASSERT_EQ(readBack(organisation, make.version())->parts(), parts)
        << testing::PrintToString(written(organisation));
  }
}

TEST(ValueRoundTrip, keepsListsOfTexts) {
  ValueMaker make(testSeed());
  DateFormatter formatter("en_US_POSIX");
  for (int i = 0; i < kRounds; ++i) {
    TextList texts = {make.trimmedText()};
    for (std::size_t more = make.random().below(4); more > 0; --more) {
      texts.push_back(make.trimmedText());
    }
    const auto list = VCardMultiValue::valueWithType(TextView(u"text"));
    list->addTextValues(texts);
    const VersionCode version = make.version();
    const Text text = written(*list, version);
    const auto again = VCardMultiValue::valueWithType(TextView(u"text"));
    ASSERT_TRUE(again->parse(text, version, &formatter));
    TextList textsAgain;
    for (const auto& element : again->values().value_or(VCardValueList())) {
      textsAgain.emplace_back(dynamic_cast<const VCardTextValue&>(*element).text().value());
    }
    ASSERT_EQ(textsAgain, texts) << testing::PrintToString(text);
  }
}

TEST(ValueRoundTrip, keepsGenders) {
  ValueMaker make(testSeed());
  for (int i = 0; i < kRounds; ++i) {
    // The first semicolon ends the sex, be it escaped or not.
    Text sex = make.text();
    std::erase(sex, u';');
    VCardGenderValue gender;
    gender.setSex(sex);
    const Text identity = make.text();
    if (make.random().oneIn(2)) {
      gender.setIdentity(identity);
    }
    const auto again = readBack(gender, make.version());
    ASSERT_EQ(again->sex(), gender.sex()) << testing::PrintToString(written(gender));
    ASSERT_EQ(again->identity(), gender.identity()) << testing::PrintToString(written(gender));
  }
}

TEST(ValueRoundTrip, keepsLabelsAndValues) {
  ValueMaker make(testSeed());
  for (int i = 0; i < kRounds; ++i) {
    VCardCustomValue custom;
    const Text label = make.text();
    const Text value = make.text();
    if (make.random().oneIn(2)) {
      custom.setLabel(label);
    }
    custom.setValue(value);
    if ((label + u"-=+=-" + value).find(u"-=+=-") != label.size() ||
        value.find(u"-=+=-") != Text::npos) {
      continue; // The separator inside a label or a value is one.
    }
    const auto again = readBack(custom, make.version());
    ASSERT_EQ(again->label(), custom.label()) << testing::PrintToString(written(custom));
    ASSERT_EQ(again->value(), custom.value()) << testing::PrintToString(written(custom));
  }
}

TEST(ValueRoundTrip, keepsPositionsToSixDecimals) {
  RandomSource random(testSeed());
  for (int i = 0; i < kRounds; ++i) {
    VCardGeoValue position;
    // Millionths of degrees.
    position.setLatitude((static_cast<double>(random.below(180'000'001)) - 90'000'000) / 1e6);
    position.setLongitude((static_cast<double>(random.below(360'000'001)) - 180'000'000) / 1e6);
    const auto again = readBack(position, 3);
    ASSERT_EQ(again->latitude(), position.latitude());
    ASSERT_EQ(again->longitude(), position.longitude());
  }
}

/// Reads any text of one line and what is then written, so many times, and expects that nothing
/// changes any more.
template <typename Value>
void expectSettledAfter(int readings, const Text& text, VersionCode version) {
  DateFormatter formatter("en_US_POSIX");
  Text settled = text;
  for (int i = 0; i < readings; ++i) {
    Value value;
    if (!value.parse(settled, version, &formatter)) {
      return;
    }
    settled = written(value, version);
  }
  Value last;
  ASSERT_TRUE(last.parse(settled, version, &formatter)) << testing::PrintToString(text);
  ASSERT_EQ(written(last, version), settled) << testing::PrintToString(text) << ' ' << version;
}

TEST(ValueRoundTrip, settlesForAnyText) {
  ValueMaker make(testSeed());
  for (int i = 0; i < kRounds; ++i) {
    Text text = make.text() + make.text();
    std::erase(text, u'\n');
    const VersionCode version = make.version();
    expectSettledAfter<VCardTextValue>(1, text, version);
    // Blanks that were escaped are trimmed the second time.
    expectSettledAfter<VCardNValue>(2, text, version);
    expectSettledAfter<VCardAddressValue>(2, text, version);
    expectSettledAfter<VCardOrgValue>(1, text, version);
    expectSettledAfter<VCardCustomValue>(1, text, version);
    expectSettledAfter<VCardGeoValue>(1, text, version);
    if (HasFatalFailure()) {
      return;
    }
  }
}

} // namespace
} // namespace cardwright
