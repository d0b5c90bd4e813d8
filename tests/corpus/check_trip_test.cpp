#include "cardwright/check.h"
#include "cardwright/face.h"
#include "support/corpus.h"

#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <string>

namespace cardwright {
namespace {

using Counts = std::map<std::string_view, std::size_t>;

Counts errorsIn(std::string_view text) {
  Counts counts;
  for (const Finding& finding : checkText(text)) {
    if (finding.severity == Severity::error) {
      // Versions ask for different names; a card without any lacks whichever it is.
      const bool isName = finding.code == "missing-fn" || finding.code == "missing-n";
      counts[isName ? "missing name" : finding.code] += finding.count;
    }
  }
  return counts;
}

TEST(CheckTrip, findsNoErrorInConvertedCardsThatTheyDidNotHave) {
  const auto files = corpusFiles();
  if (!files) {
    std::cout << "CARDWRIGHT_CORPUS is not set: all files of the corpus are skipped\n";
    return;
  }
  std::size_t before = 0;
  std::map<VersionCode, std::size_t> after;
  for (const auto& file : *files) {
    SCOPED_TRACE(file.string());
    const std::string bytes = bytesOf(file);
    const Counts old = errorsIn(bytes);
    for (const auto& [code, count] : old) {
      before += count;
    }
    const VCardList cards = readCards(bytes);
    for (const VersionCode version : {2, 3, 4}) {
      const std::string converted = writeCards(convertCards(cards, version));
      for (const auto& [code, count] : errorsIn(converted)) {
        after[version] += count;
        EXPECT_TRUE(old.contains(code)) << code << " in version " << version << "\n";
      }
    }
  }
  std::cout << before << " errors before, " << after[2] << " in 2.1, " << after[3] << " in 3.0, "
            << after[4] << " in 4.0\n";
}

} // namespace
} // namespace cardwright
