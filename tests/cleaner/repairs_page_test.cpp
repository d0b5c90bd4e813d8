#include "cardwright/utf8.h"
#include "cardwright/vcard_cleaner.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace cardwright {
namespace {

/// One example of the page.
struct Example {
  std::size_t line = 0; ///< of the page
  std::vector<std::string> before;
  std::vector<std::string> after;
  std::vector<std::string> told;
};

std::vector<Example> examplesOf(const std::string& path) {
  std::ifstream page(path);
  std::vector<Example> examples;
  std::vector<std::string>* block = nullptr;
  std::string line;
  for (std::size_t number = 1; std::getline(page, line); ++number) {
    if (line == "```before") {
      examples.push_back({number, {}, {}, {}});
      block = &examples.back().before;
    } else if (line == "```after") {
      block = &examples.back().after;
    } else if (line == "```told") {
      block = &examples.back().told;
    } else if (line == "```") {
      block = nullptr;
    } else if (block != nullptr && line != "(nothing)") {
      block->push_back(line);
    }
  }
  return examples;
}

std::string replaced(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const bool isHere = text.substr(at).starts_with(from);
    result.append(isHere ? to : text.substr(at, 1));
    at += isHere ? from.size() : 1;
  }
  return result;
}

/// Lines as a card, with the line ends that are shown or else CR LF.
std::string cardOf(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line;
    if (!line.ends_with("␊")) {
      text += "\r\n";
    }
  }
  const bool showsEnds = text.find("␊") != std::string::npos;
  const std::string end = showsEnds && text.find("␍␍␊") != std::string::npos ? "\r\r\n" : "\r\n";
  text = replaced(replaced(text, "␍", "\r"), "␊", "\n");
  return std::string("BEGIN:VCARD").append(end).append(text).append("END:VCARD").append(end);
}

std::string withoutLastLineEnd(std::string text) {
  while (!text.empty() && (text.back() == '\r' || text.back() == '\n')) {
    text.pop_back();
  }
  return text;
}

TEST(RepairsPage, showsWhatIsDone) {
  const std::vector<Example> examples = examplesOf(CARDWRIGHT_DOCS "/repairs.md");
  ASSERT_GT(examples.size(), 12U);
  for (const Example& example : examples) {
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
  for (const Example& example : examplesOf(CARDWRIGHT_DOCS "/repairs.md")) {
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
