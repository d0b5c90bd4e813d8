#include "cardwright/cardwright.h"
#include "threads/at_once.h"
#include "threads/torn_cards.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>

namespace cardwright {
namespace {

/// Everything that reading, cleaning and writing a text give.
std::string processed(const std::string& text) {
  std::string result;
  ReadReport report;
  DateFormatter formatter("en_US_POSIX");
  for (const auto& card : readCards(text, &report)) {
    for (const VersionCode version : {2, 3, 4}) {
      Text written;
      card->generate(written, version, &formatter);
      result += utf8FromText(written);
    }
  }
  for (const std::string& summary : report.summaries) {
    result += summary + "\n";
  }
  VCardCleaner cleaner;
  result += cleaner.clean(text);
  return result;
}

TEST(DifferentTexts, areReadCleanedAndWrittenAtOnceFromTheFirstCallOn) {
  constexpr std::size_t kTextsOfEach = 6;
  std::array<std::array<std::string, kTextsOfEach>, kThreads> texts;
  for (std::size_t thread = 0; thread < kThreads; ++thread) {
    for (std::size_t i = 0; i < kTextsOfEach; ++i) {
      texts[thread][i] = tornCards(thread * kTextsOfEach + i);
    }
  }
  auto results = texts;
  runAtOnce(kTextsOfEach, [&](std::size_t thread, std::size_t i) {
    results[thread][i] = processed(texts[thread][i]);
  });
  for (std::size_t thread = 0; thread < kThreads; ++thread) {
    for (std::size_t i = 0; i < kTextsOfEach; ++i) {
      EXPECT_NE(results[thread][i].find("Split merged properties"), std::string::npos);
      EXPECT_EQ(results[thread][i], processed(texts[thread][i]));
    }
  }
}

} // namespace
} // namespace cardwright
