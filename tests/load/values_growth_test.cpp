#include "cardwright/vcard.h"
#include "cardwright/vcard_address_value.h"
#include "cardwright/vcard_custom_value.h"
#include "cardwright/vcard_gender_value.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_org_value.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_x_value.h"
#include "support/kept_memory.h"
#include "support/text_printer.h"
#include "support/time_growth.h"
#include "support/value_texts.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

namespace cardwright {
namespace {

constexpr std::size_t kMegabyte = std::size_t{1} << 20U;

const Text kPieces[] = {u"\\",  u"=",   u",",     u";",      u"^",     u"7",       u".",
                        u"\\,", u"\\;", u"\\\\n", u"=0D=0A", u"-=+=-", u"\u3000,", u"\u00E9"};

Text repeated(const Text& piece, std::size_t size) {
  Text text;
  text.reserve(size + piece.size());
  while (text.size() < size) {
    text += piece;
  }
  return text;
}

/// Reads and writes 1, 2 and 4 MB of each piece.
template <typename Make>
void expectLinearReading(std::size_t size, Make make) {
  keepMemory();
  DateFormatter formatter("en_US_POSIX");
  for (const Text& piece : kPieces) {
    for (const bool isEncoded : {false, true}) {
      SCOPED_TRACE(testing::PrintToString(piece));
      expectLinear(size, [&](std::size_t units) {
        const auto value = make();
        if (isEncoded) {
          value->setQuotedPrintable(true);
          value->setCharset(u"utf-8");
        }
        const Text text = repeated(piece, units);
        value->parse(text, 3, &formatter);
        Text output;
        value->generate(output, 3, &formatter);
        EXPECT_LE(output.size(), units * 4 + 100);
      });
    }
  }
}

template <typename Value>
class ValuesGrowth : public testing::Test {};

using Classes = testing::Types<VCardTextValue, VCardNValue, VCardAddressValue, VCardOrgValue,
                               VCardGenderValue, VCardGeoValue, VCardCustomValue>;
TYPED_TEST_SUITE(ValuesGrowth, Classes);

TYPED_TEST(ValuesGrowth, isLinear) {
  expectLinearReading(kMegabyte, [] { return std::make_shared<TypeParam>(); });
}

TEST(ListGrowth, isLinear) {
  expectLinearReading(kMegabyte / 4,
                      [] { return VCardMultiValue::valueWithType(TextView(u"text")); });
}

TEST(ListGrowth, isLinearInTheNameOfTheType) {
  expectLinear(kMegabyte / 8, [](std::size_t size) {
    DateFormatter formatter;
    const auto list = VCardMultiValue::valueWithType(Text(size, u'x'));
    EXPECT_TRUE(list->parse(Text(size, u','), 4, &formatter));
    EXPECT_EQ(list->values()->size(), size + 1);
    EXPECT_EQ(list->values()->back()->type()->size(), size);
  });
}

TEST(ListGrowth, isLinearInTheNameOfTheCharset) {
  for (const char16_t letter : {u'x', u'\u00DF'}) {
    expectLinear(kMegabyte / 8, [letter](std::size_t size) {
      DateFormatter formatter;
      const Text charset(size, letter);
      const Text commas(size, u',');
      const auto list = VCardMultiValue::valueWithType(TextView(u"text"));
      list->setCharset(charset);
      EXPECT_TRUE(list->parse(commas, 4, &formatter));
      EXPECT_EQ(list->values()->back()->charset(), TextView(charset));
      VCardNValue name;
      name.setCharset(charset);
      EXPECT_TRUE(name.parse(commas, 4, &formatter));
      EXPECT_EQ(name.last()->size(), size + 1);
      VCardOrgValue organisation;
      organisation.setCharset(charset);
      EXPECT_TRUE(organisation.parse(Text(size, u';'), 4, &formatter));
      EXPECT_EQ(organisation.parts().size(), size + 1);
    });
  }
}

TEST(ListGrowth, isLinearInBothForAWholeCard) {
  for (const TextView parameter : {u"CHARSET=", u"VALUE=", u"ENCODING=QUOTED-PRINTABLE;CHARSET="}) {
    for (const TextView name : {u"CATEGORIES", u"N", u"ORG"}) {
      SCOPED_TRACE(testing::PrintToString(Text(name)) + testing::PrintToString(Text(parameter)));
      expectLinear(kMegabyte / 16, [&](std::size_t size) {
        Text text = u"BEGIN:VCARD\r\nVERSION:3.0\r\n";
        text.append(name).append(u";").append(parameter).append(size, u'x').append(u":");
        text += repeated(u"a,;", size) + u"\r\nEND:VCARD\r\n";
        const auto cards = VCard::vCardsFromString(TextView(text));
        ASSERT_EQ(cards->size(), 1U);
        EXPECT_NE(cards->front()->propertiesWithName(name), nullptr);
      });
    }
  }
}

} // namespace
} // namespace cardwright
