#include "base/clean_utf8.h"
#include "support/bytes.h"
#include "support/combinations.h"
#include "support/seed.h"
#include "support/utf8_repair.h"

#include <gtest/gtest.h>

#include <random>

namespace cardwright {
namespace {

std::string cleanedHex(std::string_view hex) {
  return cleanedUtf8(bytesFromHex(hex));
}

TEST(CleanedUtf8, copiesWhatIsLegal) {
  for (const char* hex : {"", "00", "617f00", "c280", "dfbf", "e0a080", "ed9fbf", "ee8080",
                          "efbfbf", "efbbbf41", "f0908080", "f48fbfbf"}) {
    EXPECT_EQ(cleanedHex(hex), bytesFromHex(hex)) << hex;
  }
}

TEST(CleanedUtf8, dropsTheFirstByteOfWhatIsNot) {
  EXPECT_EQ(cleanedHex("61ff62"), "ab");
  EXPECT_EQ(cleanedHex("8061c1f8ff62"), "ab");
  EXPECT_EQ(cleanedHex("c341"), "A");
  EXPECT_EQ(cleanedHex("e2414243"), "ABC");
  EXPECT_EQ(cleanedHex("c08078"), "x");
  EXPECT_EQ(cleanedHex("eda08078"), "x");
  EXPECT_EQ(cleanedHex("f490808078"), "x");
  EXPECT_EQ(cleanedHex("f88880808078"), "x");
}

TEST(CleanedUtf8, isEmptyWhenTheEndIsCutShortWhateverFollowsTheFirstByte) {
  EXPECT_EQ(cleanedHex("41c3"), "");
  EXPECT_EQ(cleanedHex("41e282"), "");
  EXPECT_EQ(cleanedHex("41e241"), "");
  EXPECT_EQ(cleanedHex("f7414243"), "ABC");
  EXPECT_EQ(cleanedHex("41f74142"), "");
}

TEST(CleanedUtf8, followsItsRuleOnAllShortSequences) {
  const std::string alphabet = bytesFromHex("41008090a0bfc1c2dfe0edf0f4f5f8ff");
  forEachCombination(alphabet, 4, [](const std::string& bytes) {
    ASSERT_EQ(cleanedUtf8(bytes), repairedByTheRule(bytes)) << testing::PrintToString(bytes);
  });
}

TEST(CleanedUtf8, followsItsRuleOnRandomBytes) {
  std::mt19937_64 random(testSeed());
  const std::string alphabet = bytesFromHex("4161808f909fa0bfc3a9e282acf09f9880edf4");
  for (int round = 0; round < 20000; ++round) {
    const std::string bytes = randomString(alphabet, random() % 40, random) + "end";
    ASSERT_EQ(cleanedUtf8(bytes), repairedByTheRule(bytes)) << testing::PrintToString(bytes);
  }
}

} // namespace
} // namespace cardwright
