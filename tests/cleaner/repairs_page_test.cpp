#include "cardwright/utf8.h"
#include "cardwright/vcard_cleaner.h"
#include "support/repairs_page.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace cardwright {
namespace {

std::string withoutLastLineEnd(std::string text) {
  while (!text.empty() && (text.back() == '\r' || text.back() == '\n')) {
    text.pop_back();
  }
  return text;
}

TEST(RepairsPage, showsWhatIsDone) {
  const std::vector<RepairExample> examples = repairExamples(CARDWRIGHT_DOCS "/repairs.md");
  ASSERT_GT(examples.size(), 12U);
  for (const RepairExample& example : examples) {
    VCardCleaner cleaner;
    const std::string cleaned = cleaner.clean(std::string_view(cardOf(example.before)));
    EXPECT_EQ(withoutLastLineEnd(cleaned), withoutLastLineEnd(cardOf(example.after)))
        << "docs/repairs.md:" << example.line;
    std::vector<std::string> told;
    for (const Text& summary : cleaner.lastCleaningSummaries()) {
      told.push_back(utf8FromText(summary));
    }
    EXPECT_EQ(told, example.told) << "docs/repairs.md:" << example.line;
  }
}

TEST(RepairsPage, namesEverySummary) {
  std::set<std::string> told;
  for (const RepairExample& example : repairExamples(CARDWRIGHT_DOCS "/repairs.md")) {
    for (const std::string& summary : example.told) {
      told.insert(summary.substr(0, summary.find(" at ")).substr(0, summary.find(" after ")));
    }
  }
  EXPECT_EQ(told,
            (std::set<std::string>{
                "NOTE: decoded numeric entities", "NOTE: extracted trailing allowlisted property",
                "Normalized malformed CRCRLF separators", "Performed vCard normalization",
                "Removed duplicate metadata properties", "Split merged properties starting",
                "Split numeric entities in X-ADDRESSBOOKSERVER-MEMBER",
                "Trimmed dangling extended fragment"}));
}

} // namespace
} // namespace cardwright
