#include "allocations/counted_memory.h"
#include "cardwright/face.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard.h"
#include "support/address_book.h"

#include <gtest/gtest.h>

#include <iostream>

namespace cardwright {
namespace {

/// Allocations for each property while a plain address book of a version is read.
double allocationsPerProperty(int version) {
  AddressBookOptions options;
  options.cards = 2'000;
  options.version = version;
  const std::string utf8 = addressBook(options);
  ReadReport report;
  static_cast<void>(readCards(utf8, &report));
  const Text text = textFromUtf8(utf8);

  const std::size_t before = allocationsSoFar();
  const auto cards = VCard::vCardsFromString(TextView(text));
  const std::size_t made = allocationsSoFar() - before;

  EXPECT_EQ(cards->size(), options.cards);
  const double each = static_cast<double>(made) / static_cast<double>(report.properties);
  std::cout << "version " << version << ": " << each << " allocations for each of "
            << report.properties << " properties\n";
  return each;
}

TEST(Allocations, areFewForEachProperty) {
  // Structured and quoted-printable values, of which 2.1 has most, take more than plain ones.
  EXPECT_LT(allocationsPerProperty(2), 13);
  EXPECT_LT(allocationsPerProperty(3), 8);
  EXPECT_LT(allocationsPerProperty(4), 9);
}

TEST(Allocations, areNoneToTellVersionsAndFewToWriteCards) {
  AddressBookOptions options;
  options.cards = 1'000;
  const std::string utf8 = addressBook(options);
  static_cast<void>(writeCards(readCards(utf8))); // what each thread makes once
  const VCardList cards = readCards(utf8);
  std::size_t before = allocationsSoFar();
  std::size_t versions = 0;
  for (const auto& card : cards) {
    versions += card->version() >= 2 ? 1 : 0;
  }
  EXPECT_EQ(versions, cards.size());
  EXPECT_EQ(allocationsSoFar(), before);

  before = allocationsSoFar();
  static_cast<void>(writeCards(cards));
  const std::size_t made = allocationsSoFar() - before;
  std::cout << made << " allocations to write " << cards.size() << " cards\n";
  EXPECT_LT(made, 3 * cards.size()); // photos of 2.1 are made of properties
}

} // namespace
} // namespace cardwright
