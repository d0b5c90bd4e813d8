#include "cardwright/decode.h"
#include "support/address_book.h"
#include "support/afresh.h"
#include "support/corpus_test.h"
#include "support/round_trip.h"
#include "support/same_writing.h"
#include "support/seed.h"
#include "support/strange_cards.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <iostream>
#include <string>

namespace cardwright {
namespace {

struct Tally {
  std::size_t cards = 0;
  std::size_t compared = 0;
  std::size_t unwritable = 0;

  void add(const RoundTrip& trip) {
    ++cards;
    compared += trip.isCompared ? 1 : 0;
    unwritable += trip.unwritable;
  }
};

std::ostream& operator<<(std::ostream& stream, const Tally& tally) {
  return stream << tally.compared << " of " << tally.cards << " cards compared, without "
                << tally.unwritable << " properties that cannot be written\n";
}

using CorpusRoundTrip = CorpusTest;

TEST_F(CorpusRoundTrip, keepsCards) {
  Tally tally;
  for (const auto& file : files()) {
    SCOPED_TRACE(file.string());
    const auto cards = VCard::vCardsFromString(decodeFile(bytesOf(file)));
    expectSameWritingWithoutLines(cards.value());
    for (const auto& card : cards.value()) {
      for (const VersionCode version : {2, 3, 4}) {
        EXPECT_EQ(written(*card, version), writtenAfresh(*card, version));
      }
      const RoundTrip trip = roundTrip(*card);
      tally.add(trip);
      EXPECT_EQ(trip.surprises, "");
    }
  }
  std::cout << tally;
  EXPECT_GT(tally.compared, tally.cards * 9 / 10);
}

TEST(RoundTrip, keepsWhatALaterVersionThanAnyStates) {
  for (const TextView version : {u"5.0", u"9223372036854775808", u"18446744073709549568"}) {
    const auto cards = readUncleaned(Text(u"BEGIN:VCARD\nPHOTO:x\nVERSION:x\nVERSION:")
                                         .append(version)
                                         .append(u"\nPHOTO:y\nEND:VCARD\n"));
    ASSERT_EQ(cards.size(), 1U);
    const RoundTrip trip = roundTrip(*cards.front());
    EXPECT_TRUE(trip.isCompared);
    EXPECT_EQ(trip.surprises, "");
  }
}

TEST(RoundTrip, keepsAllOfAnAddressBook) {
  AddressBookOptions options;
  options.cards = kTimesAreMeaningful ? 20'000 : 2'000;
  options.seed = testSeed();
  Tally tally;
  for (const auto& card : VCard::vCardsFromString(std::string_view(addressBook(options)))) {
    const RoundTrip trip = roundTrip(*card);
    tally.add(trip);
    ASSERT_EQ(trip.surprises, "") << "card " << tally.cards << ", seed " << options.seed;
  }
  std::cout << tally;
  EXPECT_EQ(tally.compared, options.cards);
  EXPECT_EQ(tally.unwritable, 0U);
}

TEST(RoundTrip, tearsAMemberFoldedBeforeANameWhoseColonIsOnTheNextLine) {
  const Text card = Text(u"BEGIN:VCARD\r\nVERSION:4.0\r\nX-ADDRESSBOOKSERVER-MEMBER:")
                        .append(48, u'x')
                        .append(u"X-ADDRESSBOOKSERVER-Me\r\nEND:VCARD\r\n");
  const auto cards = VCard::vCardsFromString(TextView(card));
  ASSERT_TRUE(cards);
  const RoundTrip trip = roundTrip(*cards->front());
  EXPECT_EQ(trip.unwritable, 1U);
  EXPECT_EQ(trip.surprises, "");
}

TEST(RoundTrip, changesStrangeCardsByTheRulesOnly) {
  const std::uint64_t seed = testSeed();
  const std::uint64_t count = environmentNumber("CARDWRIGHT_CARDS", 20'000);
  StrangeCards cards(seed);
  Tally tally;
  for (std::uint64_t i = 0; i < count; ++i) {
    const Text text = cards.card();
    for (const auto& card : readUncleaned(text)) {
      const RoundTrip trip = roundTrip(*card);
      tally.add(trip);
      ASSERT_EQ(trip.surprises, "")
          << "card " << i << ", seed " << seed << ": " << ::testing::PrintToString(text);
    }
  }
  std::cout << tally;
  EXPECT_GT(tally.compared, tally.cards * 9 / 10);
}

} // namespace
} // namespace cardwright
