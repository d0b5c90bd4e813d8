#include "cardwright/face.h"
#include "support/address_book.h"
#include "support/kept_memory.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <iostream>
#include <string>

namespace cardwright {
namespace {

/// Makes the cards read what their lines say, which they put off until they are asked.
std::size_t countProperties(const VCardList& cards) {
  std::size_t count = 0;
  for (const auto& card : cards) {
    for (const auto& [name, properties] : card->propertyDict()) {
      count += properties->size();
    }
  }
  return count;
}

TEST(CleaningCost, isSmallForAnAddressBookThatNeedsNothing) {
  constexpr double kLimit = 1.5;
  keepMemory();
  AddressBookOptions book;
  book.cards = kTimesAreMeaningful ? 20'000 : 200;
  const std::string utf8 = addressBook(book);
  const auto cardsOf = [&utf8](bool clean) {
    ReadReport report;
    ReadOptions options;
    options.clean = clean;
    VCardList cards = readCards(utf8, &report, options);
    EXPECT_TRUE(report.repairs.empty());
    return cards;
  };
  const auto read = [&](bool clean) { EXPECT_GT(countProperties(cardsOf(clean)), book.cards); };
  read(true);
  if (!kTimesAreMeaningful) {
    return;
  }
  const double ratio = growthBetween([&] { read(false); }, [&] { read(true); }, kLimit);
  std::cout << "reading with cleaning against reading alone: " << ratio << "\n";
  EXPECT_LT(ratio, kLimit);

  // Where no card is ever asked, the cleaner's look at the lines is most of the work.
  constexpr double kUnaskedLimit = 2;
  const auto open = [&](bool clean) { EXPECT_EQ(cardsOf(clean).size(), book.cards); };
  const double unasked = growthBetween([&] { open(false); }, [&] { open(true); }, kUnaskedLimit);
  std::cout << "the same, without asking the cards: " << unasked << "\n";
  EXPECT_LT(unasked, kUnaskedLimit);
}

} // namespace
} // namespace cardwright
