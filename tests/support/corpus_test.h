#pragma once

#include "cardwright/face.h"
#include "support/corpus.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <iostream>
#include <vector>

namespace cardwright {

/// A test with all files of the corpus, skipped where there is none.
class CorpusTest : public testing::Test {
 protected:
  void SetUp() override {
    const auto files = corpusFiles();
    if (!files) {
      GTEST_SKIP() << "CARDWRIGHT_CORPUS is not set";
    }
    m_files = *files;
  }

  [[nodiscard]] const std::vector<std::filesystem::path>& files() const noexcept { return m_files; }

  /// Looks at each card that there is.
  template <typename Look>
  void forEachCard(Look look) const {
    std::size_t cards = 0;
    for (const auto& file : m_files) {
      SCOPED_TRACE(file.string());
      for (const auto& card : readCards(bytesOf(file))) {
        ++cards;
        look(*card);
      }
    }
    std::cout << cards << " cards\n";
    EXPECT_GT(cards, 0U);
  }

 private:
  std::vector<std::filesystem::path> m_files;
};

} // namespace cardwright
