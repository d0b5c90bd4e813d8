#include "base/short_word.h"
#include "support/combinations.h"
#include "support/seed.h"

#include <gtest/gtest.h>

#include <random>

namespace cardwright {
namespace {

TEST(ShortWord, isUpperCasedWithTheFirstLetterLowest) {
  const ShortWord word = shortWordAt(u"x-1b:12345678", 0);
  EXPECT_EQ(word.size, 4U);
  EXPECT_EQ(word.letters, 0x42312D58U);
  EXPECT_EQ(shortWordAt(u":abc", 0), ShortWord());
  EXPECT_EQ(shortWordAt(u"", 0), ShortWord());
  EXPECT_EQ(shortWordAt(u"CATEGORIES:", 0).size, ShortWord::kMost);
}

TEST(ShortWord, isThatOfThePlainForm) {
  std::mt19937_64 random(testSeed());
  const Text alphabet = u"aZ09-:@[`{/;. \u0000\u007F\u0131\u017F\u8041\uFF21\uFFFF";
  for (int round = 0; round < 100'000; ++round) {
    const Text text = randomString(alphabet, random() % 20, random);
    for (std::size_t begin = 0; begin <= text.size(); ++begin) {
      ASSERT_EQ(shortWordAt(text, begin), shortWordPlainly(text, begin));
    }
  }
  for (char32_t unit = 0; unit < 0x10000; ++unit) {
    const Text text(9, static_cast<char16_t>(unit));
    ASSERT_EQ(shortWordAt(text, 0), shortWordPlainly(text, 0)) << std::hex << std::uint32_t{unit};
  }
}

} // namespace
} // namespace cardwright
