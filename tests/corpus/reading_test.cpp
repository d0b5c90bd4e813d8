#include "cardwright/decode.h"
#include "cardwright/face.h"
#include "support/corpus_test.h"

#include <gtest/gtest.h>

#include <iostream>
#include <string>

namespace cardwright {
namespace {

using CorpusReading = CorpusTest;

TEST_F(CorpusReading, isDoneWithoutACrash) {
  std::size_t cards = 0;
  for (const auto& file : files()) {
    SCOPED_TRACE(file.string());
    const std::string bytes = bytesOf(file);
    ReadReport report;
    const VCardList fromBytes = readCards(bytes, &report);
    EXPECT_EQ(report.cards, fromBytes.size());
    const auto fromText = VCard::vCardsFromString(decodeFile(bytes));
    ASSERT_TRUE(fromText);
    cards += fromText->size();
  }
  std::cout << files().size() << " files with " << cards << " cards\n";
  EXPECT_GT(cards, 0U);
}

} // namespace
} // namespace cardwright
