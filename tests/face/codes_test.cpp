#include "cardwright/codes.h"
#include "support/corpus.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright {
namespace {

/// The codes of a kind as docs/reports.md lists them.
template <typename Kind>
std::string listed(const char* step, int count) {
  std::string line = "| `" + std::string(step) + "` | ";
  for (int kind = 1; kind <= count; ++kind) {
    line.append(kind == 1 ? "" : ", ").append(codeOf(static_cast<Kind>(kind)));
  }
  EXPECT_EQ(codeOf(static_cast<Kind>(0)), "unknown");
  EXPECT_EQ(codeOf(static_cast<Kind>(count + 1)), "unknown");
  return line + " |\n";
}

TEST(Codes, areThoseOfThePage) {
  const std::string page = bytesOf(CARDWRIGHT_DOCS "/reports.md");
  for (const std::string& line :
       {listed<CleaningRepairKind>("repair", 8), listed<DropReason>("read", 7),
        listed<ConversionKind>("convert", 7), listed<WriteChangeKind>("write", 12)}) {
    EXPECT_NE(page.find(line), std::string::npos) << line;
  }
}

} // namespace
} // namespace cardwright
