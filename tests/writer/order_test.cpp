#include "cardwright/vcard.h"
#include "cardwright/vcard_parameter.h"
#include "cardwright/vcard_property.h"
#include "support/random_source.h"
#include "support/text_printer.h"
#include "writer/order.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace cardwright {
namespace {

TextList propertyOrder(const TextList& names) {
  VCard card;
  for (const Text& name : names) {
    card.addProperty(VCardProperty::propertyWithName(name, TextView(u"x")));
  }
  return card.propertiesInSortOrder();
}

TextList parameterOrder(const TextList& names) {
  VCardProperty property;
  for (const Text& name : names) {
    property.addParameter(VCardParameter::parameterWithName(name, u"x"));
  }
  return property.parametersInSortOrder();
}

TEST(PropertyOrder, comparesKeysBeyondTheirHeads) {
  EXPECT_EQ(propertyOrder({u"X-ABCDEFGHIJB", u"X-ABCDEFGHIJ", u"X-ABCDEFGHIJA", u"X-ABCDE",
                           u"X-ABC", u"X-\uFFFD", u"X-\u00E9A", u"X"}),
            TextList({u"X", u"X-ABC", u"X-ABCDE", u"X-ABCDEFGHIJ", u"X-ABCDEFGHIJA",
                      u"X-ABCDEFGHIJB", u"X-\u00C9A", u"X-\uFFFD"}));
}

TEST(PropertyOrder, knowsANulFromTheEndOfAKey) {
  using namespace std::string_literals;
  EXPECT_EQ(propertyOrder({u"A\0\0"s, u"A\0B"s, u"A"s, u"A\0"s}),
            TextList({u"A"s, u"A\0"s, u"A\0\0"s, u"A\0B"s}));
}

TEST(PropertyOrder, putsTheMainPropertiesFirst) {
  EXPECT_EQ(propertyOrder({u"X-FOO", u"EMAIL", u"N", u"VERSION", u"NOTE", u"FN"}),
            (TextList{u"VERSION", u"FN", u"N", u"EMAIL", u"NOTE", u"X-FOO"}));
  EXPECT_EQ(propertyOrder({u"ADR", u"TEL", u"EMAIL", u"TITLE", u"ORG", u"N", u"FN", u"PRODID",
                           u"VERSION", u"ADDRESS"}),
            (TextList{u"VERSION", u"PRODID", u"FN", u"N", u"ORG", u"TITLE", u"EMAIL", u"TEL",
                      u"ADR", u"ADDRESS"}));
}

TEST(PropertyOrder, namesEachKeyOnce) {
  EXPECT_EQ(propertyOrder({u"tel", u"Tel", u"TEL", u"fn"}), (TextList{u"FN", u"TEL"}));
  EXPECT_EQ(propertyOrder({}), TextList{});
}

TEST(PropertyOrder, comparesTheOthersByCodeUnits) {
  // By code points, U+FF21 would come before the pair that begins with 0xD83D.
  EXPECT_EQ(propertyOrder({u"\uFF21", u"\U0001F600", u"URL", u"X-B", u"X-", u"NOTE", u""}),
            (TextList{u"", u"NOTE", u"URL", u"X-", u"X-B", u"\U0001F600", u"\uFF21"}));
}

TEST(PropertyOrder, knowsRanksOfUpperCaseKeysOnly) {
  VCardPropertyDict dict;
  for (const TextView key : {TextView(u"fn"), TextView(u"VERSION"), TextView(u"NOTE")}) {
    dict[Text(key)] = std::make_shared<VCardPropertyList>();
  }
  VCard card;
  card.setPropertyDict(dict);
  EXPECT_EQ(card.propertiesInSortOrder(), (TextList{u"VERSION", u"NOTE", u"fn"}));
}

TEST(ParameterOrder, putsValueEncodingAndTypeFirst) {
  EXPECT_EQ(parameterOrder({u"X-A", u"TYPE", u"CHARSET", u"ENCODING", u"ALTID", u"VALUE"}),
            (TextList{u"VALUE", u"ENCODING", u"TYPE", u"ALTID", u"CHARSET", u"X-A"}));
  EXPECT_EQ(parameterOrder({u"type", u"Type"}), TextList{u"TYPE"});
  EXPECT_EQ(parameterOrder({}), TextList{});
}

/// Names of a few letters, so that many share their beginning.
Text randomName(RandomSource& random) {
  static constexpr std::array<char16_t, 7> kUnits = {u'A', u'A', u'A', u'B', 0, 0xE9, 0x20AC};
  Text name;
  for (std::size_t i = random.below(30); i > 0; --i) {
    name.push_back(random.chance(90) ? u'A' : random.oneOf(kUnits));
  }
  return name;
}

TEST(Order, isThatOfTheKeysHoweverManyThereAre) {
  RandomSource random(20261121);
  for (int round = 0; round < 3000; ++round) {
    std::set<Text> names;
    for (std::size_t i = random.below(80); i > 0; --i) {
      names.insert(randomName(random));
    }
    std::vector<Text> shuffled(names.begin(), names.end());
    for (std::size_t i = shuffled.size(); i > 1; --i) {
      std::swap(shuffled[i - 1], shuffled[random.below(i)]);
    }
    detail::KeyedList<int> list;
    for (const Text& name : shuffled) {
      list.add(detail::TextStorage(TextView(name)), 0);
    }
    ASSERT_EQ(keysInWrittenOrder(list, propertyRank), TextList(names.begin(), names.end()));
  }
}

TEST(Order, keepsTheValuesOfADictionaryWithTheirKeys) {
  detail::KeyedList<int> list;
  int number = 0;
  for (const TextView key : {TextView(u"b"), TextView(u"TEL"), TextView(u"a"), TextView(u"N")}) {
    list.add(detail::TextStorage(key), ++number);
  }
  std::vector<int> values;
  const WrittenOrder order(list, propertyRank);
  for (std::size_t place = 0; place < order.size(); ++place) {
    values.push_back(*order[place].value);
  }
  EXPECT_EQ(values, (std::vector<int>{4, 2, 3, 1}));
  EXPECT_EQ(keysInWrittenOrder(list, parameterRank), (TextList{u"N", u"TEL", u"a", u"b"}));
}

} // namespace
} // namespace cardwright
