#include "cardwright/face.h"
#include "support/address_book.h"
#include "support/kept_memory.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <iostream>
#include <string>

namespace cardwright {
namespace {

TEST(CleaningCost, isSmallForAnAddressBookThatNeedsNothing) {
  constexpr double kLimit = 1.5;
  keepMemory();
  AddressBookOptions book;
  book.cards = kTimesAreMeaningful ? 20'000 : 200;
  const std::string utf8 = addressBook(book);
  const auto read = [&utf8, &book](bool clean) {
    ReadReport report;
    ReadOptions options;
    options.clean = clean;
    EXPECT_EQ(readCards(utf8, &report, options).size(), book.cards);
    EXPECT_TRUE(report.repairs.empty());
  };
  read(true);
  if (!kTimesAreMeaningful) {
    return;
  }
  const double ratio = growthBetween([&] { read(false); }, [&] { read(true); }, kLimit);
  std::cout << "reading with cleaning against reading alone: " << ratio << "\n";
  EXPECT_LT(ratio, kLimit);
}

} // namespace
} // namespace cardwright
