#include "allocations/counted_memory.h"
#include "cardwright/vcard_cleaner.h"
#include "support/hostile_cards.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iostream>

namespace cardwright {
namespace {

TEST(CleaningMemory, isASmallMultipleOfTheText) {
  constexpr double kLimit = 32;
  double worst = 0;
  const char* worstName = "";
  for (const HostileCard& hostile : kHostileCards) {
    const Text text = hostileText(hostile, std::size_t{1} << 20U);
    const std::size_t before = bytesInUse();
    static_cast<void>(takePeakBytes());
    {
      VCardCleaner cleaner;
      static_cast<void>(cleaner.clean(text));
    }
    const double each =
        static_cast<double>(takePeakBytes() - before) / static_cast<double>(text.size());
    EXPECT_LT(each, kLimit) << hostile.name;
    if (each > worst) {
      worst = each;
      worstName = hostile.name;
    }
  }
  std::cout << "most of all for " << worstName << ": " << worst
            << " bytes for each code unit of the text\n";
}

} // namespace
} // namespace cardwright
