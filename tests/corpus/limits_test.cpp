#include "cardwright/date_formatter.h"
#include "cardwright/face.h"
#include "cardwright/utf8.h"
#include "support/corpus.h"
#include "support/round_trip.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace cardwright {
namespace {

/// The fenced blocks of a Markdown text, each with the number of its first line.
struct Block {
  std::size_t line = 0;
  bool isSafe = false; ///< belongs to safe writing
  std::vector<std::string> lines;
};

std::vector<Block> blocksOf(const std::string& markdown) {
  std::vector<Block> blocks;
  std::istringstream stream(markdown);
  bool isInside = false;
  bool isSafe = false;
  std::size_t number = 1;
  for (std::string line; std::getline(stream, line); ++number) {
    if (line == "```") {
      isInside = !isInside;
      if (isInside) {
        blocks.push_back({number + 1, isSafe, {}});
      }
    } else if (isInside) {
      blocks.back().lines.push_back(line);
    } else if (line.starts_with("## ")) {
      isSafe = line == "## Safe writing";
    }
  }
  return blocks;
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text.append(line).append("\r\n");
  }
  return text;
}

Text safeLine(const std::shared_ptr<VCardProperty>& property, VersionCode version) {
  const auto card = std::make_shared<VCard>();
  card->addProperty(property);
  const Text text = textFromUtf8(writeCards({card}, nullptr, {version}));
  return text.substr(text.find(u'\n') + 1);
}

/// The content lines of a card's properties, one by one: labels where they are stored, not where
/// they are written.
std::string linesOf(const VCard& card, bool isSafe) {
  const VersionCode version = ownVersion(card);
  DateFormatter formatter("en_US_POSIX");
  std::string lines;
  for (const Text& name : card.propertiesInSortOrder()) {
    for (const auto& property : *card.propertiesWithName(name)) {
      Text line;
      if (isSafe) {
        line = safeLine(property, version);
      } else {
        property->generate(line, version, &formatter);
      }
      lines.append(utf8FromText(line.substr(0, line.find(u"\r\n") + 2)));
    }
  }
  return lines;
}

/// What is left of the lines of a card that is read, written for its own version and read again.
std::string left(const std::string& lines, bool isSafe) {
  constexpr std::string_view kVersion = "VERSION:3.0\r\n";
  const bool statesVersion = lines.find("VERSION:") != std::string::npos;
  const std::string text =
      "BEGIN:VCARD\r\n" + (statesVersion ? lines : std::string(kVersion) + lines) + "END:VCARD\r\n";
  const auto card = readCards(text).at(0);
  const auto again =
      readCards(isSafe ? writeCards({card}) : utf8FromText(written(*card, ownVersion(*card))))
          .at(0);
  std::string result = linesOf(*again, isSafe);
  if (!statesVersion) {
    EXPECT_TRUE(result.starts_with(kVersion));
    result.erase(0, kVersion.size());
  }
  return result;
}

TEST(Limits, areAsTheyAreDocumented) {
  const std::vector<Block> blocks = blocksOf(bytesOf(CARDWRIGHT_DOCS "/limits.md"));
  ASSERT_GT(blocks.size(), 70U);
  ASSERT_EQ(blocks.size() % 2, 0U);
  for (std::size_t i = 0; i < blocks.size(); i += 2) {
    const std::vector<std::string>& after = blocks[i + 1].lines;
    const bool isNothing = after == std::vector<std::string>{"(nothing)"};
    EXPECT_EQ(left(joined(blocks[i].lines), blocks[i].isSafe), isNothing ? "" : joined(after))
        << "docs/limits.md:" << blocks[i].line;
  }
}

} // namespace
} // namespace cardwright
