#include "cardwright/vcard_cleaner.h"
#include "support/hostile_cards.h"
#include "support/kept_memory.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace cardwright {
namespace {

constexpr double kLimit = 5;
constexpr std::size_t kMegabyte = std::size_t{1} << 20U;

class CleaningGrowth : public testing::TestWithParam<HostileCard> {};

TEST_P(CleaningGrowth, isLinear) {
  keepMemory();
  const Text small = hostileText(GetParam(), kMegabyte);
  const Text large = hostileText(GetParam(), 4 * kMegabyte);
  const auto clean = [](const Text& text) {
    VCardCleaner cleaner;
    const Text cleaned = cleaner.clean(text);
    EXPECT_TRUE(cleaner.lastDidClean() || cleaned == text);
  };
  if (!kTimesAreMeaningful) {
    clean(small);
    return;
  }
  EXPECT_LT(growthBetween([&] { clean(small); }, [&] { clean(large); }, kLimit), kLimit);
}

INSTANTIATE_TEST_SUITE_P(HostileCards, CleaningGrowth, testing::ValuesIn(kHostileCards));

} // namespace
} // namespace cardwright
