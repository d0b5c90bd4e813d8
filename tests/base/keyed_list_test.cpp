#include "cardwright/detail/keyed_list.h"
#include "support/colliding_texts.h"
#include "support/seed.h"
#include "support/text_printer.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

namespace cardwright::detail {
namespace {

Text keyOf(std::size_t number) {
  const std::string digits = std::to_string(number);
  return u"X-KEY-" + Text(digits.begin(), digits.end());
}

KeyedList<std::size_t> listOf(std::size_t count) {
  KeyedList<std::size_t> list;
  for (std::size_t i = 0; i < count; ++i) {
    list.add(TextStorage(TextView(keyOf(i))), i);
  }
  return list;
}

TEST(KeyedList, isEmptyAtFirst) {
  KeyedList<int> list;
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(list.size(), 0U);
  EXPECT_EQ(list.find(u""), nullptr);
  EXPECT_FALSE(list.remove(u"TEL"));
}

TEST(KeyedList, findsExactKeysOnly) {
  for (const std::size_t others : {0U, 100U}) {
    KeyedList<std::size_t> list = listOf(others);
    list.add(TextStorage(TextView(u"TEL")), 1000);
    list.add(TextStorage(TextView()), 2000);
    EXPECT_EQ(*list.find(u"TEL"), 1000U);
    EXPECT_EQ(*list.find(u""), 2000U);
    EXPECT_EQ(list.find(u"tel"), nullptr);
    EXPECT_EQ(list.find(u"TE"), nullptr);
    EXPECT_EQ(list.find(u"TELX"), nullptr);
    *list.find(u"TEL") = 1001;
    EXPECT_EQ(*std::as_const(list).find(u"TEL"), 1001U);
  }
}

TEST(KeyedList, findsEveryKeyAtEverySize) {
  for (std::size_t count = 0; count < 60; ++count) {
    const KeyedList<std::size_t> list = listOf(count);
    ASSERT_EQ(list.size(), count);
    for (std::size_t i = 0; i < count; ++i) {
      ASSERT_NE(list.find(keyOf(i)), nullptr) << i << " of " << count;
      ASSERT_EQ(*list.find(keyOf(i)), i);
    }
    ASSERT_EQ(list.find(keyOf(count)), nullptr);
  }
}

TEST(KeyedList, removesEveryKeyAtEverySize) {
  for (std::size_t count = 1; count < 60; ++count) {
    for (std::size_t removed = 0; removed < count; ++removed) {
      KeyedList<std::size_t> list = listOf(count);
      ASSERT_TRUE(list.remove(keyOf(removed)));
      ASSERT_FALSE(list.remove(keyOf(removed)));
      ASSERT_EQ(list.size(), count - 1);
      for (std::size_t i = 0; i < count; ++i) {
        const std::size_t* found = list.find(keyOf(i));
        ASSERT_EQ(found != nullptr, i != removed);
        ASSERT_TRUE(found == nullptr || *found == i);
      }
    }
  }
}

TEST(KeyedList, removesByAViewOfTheKeyItself) {
  for (const std::size_t count : {3U, 50U}) {
    KeyedList<std::size_t> list = listOf(count);
    while (!list.empty()) {
      ASSERT_TRUE(list.remove(list.entries().front().key.view()));
    }
  }
}

TEST(KeyedList, keepsItsIndexWhenItMoves) {
  KeyedList<std::size_t> from = listOf(100);
  KeyedList<std::size_t> to = std::move(from);
  to.add(TextStorage(TextView(u"TEL")), 7);
  for (std::size_t i = 0; i < 100; ++i) {
    ASSERT_EQ(*to.find(keyOf(i)), i);
  }
  EXPECT_EQ(*to.find(u"TEL"), 7U);
  to = {};
  EXPECT_TRUE(to.empty());
  EXPECT_EQ(to.find(keyOf(3)), nullptr);
}

TEST(KeyedList, takesBorrowedKeys) {
  static const Text kNames(200, u'N');
  KeyedList<std::size_t> list;
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    list.add(TextStorage::borrow(TextView(kNames).substr(0, i)), i);
  }
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    ASSERT_EQ(*list.find(Text(i, u'N')), i);
  }
}

TEST(KeyedList, agreesWithAMapThroughRandomChanges) {
  std::mt19937_64 random(testSeed());
  for (const std::size_t keys : {10U, 30U, 200U}) {
    KeyedList<std::size_t> list;
    std::map<Text, std::size_t> map;
    for (std::size_t step = 0; step < 20'000; ++step) {
      const Text key = keyOf(random() % keys);
      if (random() % 2 == 0) {
        ASSERT_EQ(list.remove(key), map.erase(key) == 1);
      } else if (std::size_t* found = list.find(key)) {
        *found = step;
        map.at(key) = step;
      } else {
        ASSERT_EQ(list.add(TextStorage(TextView(key)), step), step);
        ASSERT_TRUE(map.emplace(key, step).second);
      }
      ASSERT_EQ(list.size(), map.size());
    }
    std::map<Text, std::size_t> entries;
    for (const auto& [key, value] : list.entries()) {
      entries.emplace(key.view(), value);
    }
    EXPECT_EQ(entries, map);
  }
}

TEST(KeyedList, isNotSlowedDownByKeysOfOneHash) {
  const std::vector<Text> keys = collidingTexts(100'000);
  expectLinear(25'000, [&keys](std::size_t size) {
    KeyedList<std::size_t> list;
    for (std::size_t i = 0; i < size; ++i) {
      list.add(TextStorage::borrow(keys[i]), i);
    }
    for (std::size_t i = 0; i < size; ++i) {
      ASSERT_EQ(*list.find(keys[i]), i);
    }
  });
}

TEST(KeyedList, holdsAHundredThousandKeys) {
  expectLinear(25'000, [](std::size_t size) {
    KeyedList<std::size_t> list = listOf(size);
    std::size_t sum = 0;
    for (std::size_t i = 0; i < size; ++i) {
      sum += *list.find(keyOf(i)) - i;
    }
    EXPECT_EQ(sum, 0U);
    for (std::size_t i = 0; i < size; ++i) {
      ASSERT_TRUE(list.remove(keyOf(i)));
    }
    EXPECT_TRUE(list.empty());
  });
}

} // namespace
} // namespace cardwright::detail
