#include "cardwright/face.h"
#include "support/corpus.h"

#include <gtest/gtest.h>

#include <iostream>
#include <string>

namespace cardwright {
namespace {

TEST(Corpus, isCleanAfterOneCleaning) {
  const auto files = corpusFiles();
  if (!files) {
    std::cout << "CARDWRIGHT_CORPUS is not set: all files of the corpus are skipped\n";
    return;
  }
  std::size_t repaired = 0;
  for (const auto& file : *files) {
    SCOPED_TRACE(file.string());
    const auto once = cleanText(bytesOf(file));
    if (once) {
      ++repaired;
      EXPECT_FALSE(cleanText(*once));
    }
  }
  std::cout << repaired << " of " << files->size() << " files were repaired\n";
  EXPECT_GT(repaired, 0U);
}

} // namespace
} // namespace cardwright
