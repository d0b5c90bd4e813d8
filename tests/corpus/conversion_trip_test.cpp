#include "cardwright/face.h"
#include "support/address_book.h"
#include "support/built_card.h"
#include "support/conversion_trip.h"
#include "support/corpus_test.h"
#include "support/round_trip.h"
#include "support/safe_trip.h"
#include "support/seed.h"
#include "support/strange_cards.h"
#include "support/version_cards.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright {
namespace {

struct Way {
  VersionCode home;
  VersionCode there;
};

constexpr Way kWays[] = {{3, 4}, {4, 3}, {2, 3}, {3, 2}, {2, 4}, {4, 2}};

void expectReturn(const VCard& card) {
  for (const auto& [home, there] : kWays) {
    ASSERT_EQ(conversionTripSurprises(card, home, there), "") << home << " to " << there;
  }
}

using CorpusConversionTrip = CorpusTest;

TEST_F(CorpusConversionTrip, returnsCards) {
  forEachCard([](VCard& card) {
    removeUnpromised(card);
    expectReturn(card);
  });
}

TEST(ConversionTrip, returnsAllOfAnAddressBook) {
  AddressBookOptions options;
  options.cards = 500;
  options.seed = testSeed();
  for (const auto& card : VCard::vCardsFromString(std::string_view(addressBook(options)))) {
    expectReturn(*card);
  }
}

TEST(ConversionTrip, returnsWhatOnlyOneVersionHas) {
  const std::uint64_t seed = testSeed();
  const std::uint64_t count = environmentNumber("CARDWRIGHT_CARDS", 1'000);
  VersionCards cards(seed);
  for (std::uint64_t i = 0; i < count; ++i) {
    for (const auto& [home, there] : {Way{3, 4}, Way{4, 3}}) {
      const std::string text = cards.card(static_cast<int>(home));
      for (const auto& card : VCard::vCardsFromString(std::string_view(text))) {
        ASSERT_EQ(conversionTripSurprises(*card, home, there), "")
            << "card " << i << ", seed " << seed << ": " << text;
        ASSERT_EQ(conversionSurprises(*card, 2), "") << text;
      }
    }
  }
}

TEST(ConversionTrip, survivesStrangeCards) {
  const std::uint64_t seed = testSeed();
  const std::uint64_t count = environmentNumber("CARDWRIGHT_CARDS", 1'000);
  StrangeCards cards(seed);
  for (std::uint64_t i = 0; i < count; ++i) {
    const Text text = cards.card();
    for (const auto& card : readUncleaned(text)) {
      removeUnpromised(*card);
      for (const VersionCode version : {2, 3, 4}) {
        ASSERT_EQ(conversionSurprises(*card, version), "")
            << "card " << i << ", seed " << seed << ": " << ::testing::PrintToString(text);
      }
    }
  }
}

TEST(ConversionTrip, survivesCardsThatHoldWhatNoTextCould) {
  const std::uint64_t seed = testSeed();
  const std::uint64_t count = environmentNumber("CARDWRIGHT_CARDS", 1'000);
  HostilePieces pieces(seed);
  for (std::uint64_t i = 0; i < count; ++i) {
    const Text text = pieces.card();
    const auto card = builtCard(text);
    removeUnpromised(*card);
    for (const VersionCode version : {2, 3, 4}) {
      ASSERT_EQ(conversionSurprises(*card, version), "")
          << "card " << i << ", seed " << seed << ": " << ::testing::PrintToString(text);
    }
  }
}

} // namespace
} // namespace cardwright
