#include "cardwright/face.h"
#include "support/address_book.h"
#include "support/built_card.h"
#include "support/corpus_test.h"
#include "support/round_trip.h"
#include "support/safe_trip.h"
#include "support/seed.h"
#include "support/strange_cards.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright {
namespace {

constexpr VersionCode kOwnAndAll[] = {0, 2, 3, 4};

using CorpusSafeTrip = CorpusTest;

TEST_F(CorpusSafeTrip, keepsCards) {
  forEachCard([](VCard& card) {
    removeUnpromised(card);
    for (const VersionCode version : kOwnAndAll) {
      EXPECT_EQ(safeTripSurprises(card, version), "") << "version " << version;
    }
  });
}

TEST(SafeTrip, keepsAllOfAnAddressBook) {
  AddressBookOptions options;
  options.cards = 2'000;
  options.seed = testSeed();
  for (const auto& card : VCard::vCardsFromString(std::string_view(addressBook(options)))) {
    for (const VersionCode version : kOwnAndAll) {
      ASSERT_EQ(safeTripSurprises(*card, version), "") << "seed " << options.seed;
    }
  }
}

TEST(SafeTrip, keepsStrangeCards) {
  const std::uint64_t seed = testSeed();
  const std::uint64_t count = environmentNumber("CARDWRIGHT_CARDS", 3'000);
  StrangeCards cards(seed);
  for (std::uint64_t i = 0; i < count; ++i) {
    const Text text = cards.card();
    for (const auto& card : readUncleaned(text)) {
      removeUnpromised(*card);
      for (const VersionCode version : kOwnAndAll) {
        ASSERT_EQ(safeTripSurprises(*card, version), "")
            << "card " << i << ", seed " << seed << ", version " << version << ": "
            << ::testing::PrintToString(text);
      }
    }
  }
}

TEST(SafeTrip, keepsCardsThatHoldWhatNoTextCould) {
  const std::uint64_t seed = testSeed();
  const std::uint64_t count = environmentNumber("CARDWRIGHT_CARDS", 3'000);
  HostilePieces pieces(seed);
  for (std::uint64_t i = 0; i < count; ++i) {
    const Text text = pieces.card();
    const auto card = builtCard(text);
    removeUnpromised(*card);
    for (const VersionCode version : kOwnAndAll) {
      ASSERT_EQ(safeTripSurprises(*card, version), "")
          << "card " << i << ", seed " << seed << ", version " << version << ": "
          << ::testing::PrintToString(text);
    }
  }
}

} // namespace
} // namespace cardwright
