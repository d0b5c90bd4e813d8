#include "cardwright/face.h"
#include "load/doubling.h"
#include "support/large_cards.h"
#include "support/written_bytes.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright {
namespace {

/// Calls `expect(card, size)` for each kind, with sizes that take hundredths of a second.
template <typename Expect>
void forEachLargeCard(Expect expect) {
  for (const LargeCard& card : kLargeCards) {
    SCOPED_TRACE(card.name);
    expect(card, std::size_t{20'000});
  }
  for (const LargeCard& card : kBoundlessCards) {
    SCOPED_TRACE(card.name);
    expect(card, card.size / 5);
  }
}

TEST(LargeCards, areReadInLinearTime) {
  forEachLargeCard([](const LargeCard& card, std::size_t size) {
    expectDoubleTimeAtMost(size, card.make, [](const std::string& bytes) {
      ReadReport report;
      ASSERT_FALSE(readCards(bytes, &report).empty());
      ASSERT_TRUE(report.droppedLines.empty());
    });
  });
}

TEST(LargeCards, areCleanedInLinearTime) {
  forEachLargeCard([](const LargeCard& card, std::size_t size) {
    expectDoubleTimeAtMost(size, card.make, [](const std::string& bytes) {
      ASSERT_EQ(cleanText(bytes), std::nullopt);
    });
  });
}

TEST(LargeCards, areWrittenInLinearTime) {
  forEachLargeCard([](const LargeCard& card, std::size_t size) {
    expectDoubleTimeAtMost(
        size, [&](std::size_t count) { return readCards(card.make(count)); },
        [](const VCardList& cards) { ASSERT_FALSE(writtenBytes(cards).empty()); });
  });
}

} // namespace
} // namespace cardwright
