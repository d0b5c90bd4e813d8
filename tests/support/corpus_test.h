#pragma once

#include "support/corpus.h"

#include <gtest/gtest.h>

#include <filesystem>
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

 private:
  std::vector<std::filesystem::path> m_files;
};

} // namespace cardwright
