#include "cardwright/face.h"
#include "support/corpus_test.h"
#include "support/same_reading.h"

#include <gtest/gtest.h>

#include <iostream>
#include <string>

namespace cardwright {
namespace {

using CorpusCleaning = CorpusTest;

TEST_F(CorpusCleaning, isOverAfterOnce) {
  std::size_t repaired = 0;
  for (const auto& file : files()) {
    SCOPED_TRACE(file.string());
    const std::string bytes = bytesOf(file);
    ReadReport told;
    const auto once = cleanText(bytes, nullptr, std::nullopt, &told);
    ReadReport read;
    static_cast<void>(readCards(bytes, &read));
    expectSameReading(told, read);
    if (once) {
      ++repaired;
      EXPECT_FALSE(cleanText(*once));
    }
  }
  std::cout << repaired << " of " << files().size() << " files were repaired\n";
  EXPECT_GT(repaired, 0U);
}

} // namespace
} // namespace cardwright
