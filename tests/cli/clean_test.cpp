#include "cli/process.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright::tool {
namespace {

constexpr std::string_view kSound = "BEGIN:VCARD\nVERSION:3.0\nFN:Ada\nEND:VCARD\n";
constexpr std::string_view kBroken = "BEGIN:VCARD\nVERSION:3.0\nTEL:+15550100EMAIL:x\nEND:VCARD\n";
constexpr std::string_view kRepaired =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nTEL:+15550100\r\nEMAIL:x\r\nEND:VCARD\r\n";
constexpr std::string_view kSummary = ": Split merged properties starting at TEL\n";

TEST(CleanCommand, writesRepairedTextAndTellsEachRepair) {
  const Outcome outcome = runTool({{"clean"}, std::string(kBroken)});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, kRepaired);
  EXPECT_EQ(outcome.errors, "cardwright: standard input" + std::string(kSummary));
}

TEST(CleanCommand, leavesATextThatNeedsNothingByteForByte) {
  const std::string utf16("\xFF\xFE"
                          "B\0E\0G\0I\0N\0",
                          12);
  for (const std::string& text : {std::string(kSound), utf16, std::string("no card"),
                                  std::string("\xEF\xBB\xBF"
                                              "BEGIN:VCARD\nEND:VCARD")}) {
    const Outcome outcome = runTool({{"clean"}, text});
    EXPECT_EQ(outcome.output, text);
    EXPECT_EQ(outcome.status, 0);
  }
}

TEST(CleanCommand, gluesNoTwoCardsTogether) {
  const TemporaryFolder folder;
  const std::string open = folder.write("open.vcf", "BEGIN:VCARD\nEND:VCARD");
  const std::string broken = folder.write("broken.vcf", kBroken);
  EXPECT_EQ(runTool({{"clean", open, broken, open}, ""}).output,
            "BEGIN:VCARD\nEND:VCARD\r\n" + std::string(kRepaired) + "BEGIN:VCARD\nEND:VCARD");
}

TEST(CleanCommand, onlyTellsWhenAskedToCheck) {
  const Outcome broken = runTool({{"clean", "--check"}, std::string(kBroken)});
  EXPECT_EQ(broken.status, 3);
  EXPECT_EQ(broken.output, "");
  EXPECT_EQ(broken.errors, "cardwright: standard input" + std::string(kSummary));
  EXPECT_EQ(runTool({{"clean", "--check"}, std::string(kSound)}).status, 0);
}

TEST(CleanCommand, countsBytesDroppedInDecodingAsARepair) {
  const std::string text = "BEGIN:VCARD\nFN:\xC3\xA9\xC3\xA9\xFF\nEND:VCARD\n";
  const Outcome outcome = runTool({{"clean", "--check"}, text});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.errors, "cardwright: standard input: 1 byte dropped that is not UTF-8\n");
  EXPECT_EQ(runTool({{"clean"}, text}).output, "BEGIN:VCARD\nFN:\xC3\xA9\xC3\xA9\nEND:VCARD\n");
}

TEST(CleanCommand, repairsInPlaceAndKeepsABackupUnderASuffix) {
  const TemporaryFolder folder;
  const std::string broken = folder.write("broken.vcf", kBroken);
  const std::string sound = folder.write("sound.vcf", kSound);
  EXPECT_EQ(runTool({{"clean", "--in-place=.bak", broken, sound}, ""}).status, 0);
  EXPECT_EQ(fileContent(broken), kRepaired);
  EXPECT_EQ(fileContent(broken + ".bak"), kBroken);
  EXPECT_EQ(fileContent(sound), kSound);
  const std::string other = folder.write("other.vcf", kBroken);
  EXPECT_EQ(runTool({{"clean", other, "--in-place"}, ""}).status, 0);
  EXPECT_EQ(fileContent(other), kRepaired);
}

TEST(CleanCommand, refusesToRepairStandardInputInPlace) {
  EXPECT_EQ(runTool({{"clean", "--in-place=.bak"}, std::string(kBroken)}).status, 2);
  EXPECT_EQ(runTool({{"clean", "-", "--in-place"}, std::string(kBroken)}).status, 2);
}

TEST(CleanCommand, showsWhatItWouldChange) {
  EXPECT_EQ(
      runTool({{"clean", "--diff"}, "BEGIN:VCARD\r\nTEL:+15550100EMAIL:x\r\nFN:a\r\nEND:VCARD\r\n"})
          .output,
      "--- standard input\n+++ standard input (cleaned)\n@@ -1,4 +1,5 @@\n BEGIN:VCARD\n"
      "-TEL:+15550100EMAIL:x\n+TEL:+15550100\n+EMAIL:x\n FN:a\n END:VCARD\n");
  EXPECT_EQ(runTool({{"clean", "--diff"}, std::string(kSound)}).output, "");
}

TEST(CleanCommand, makesLineEndsVisibleWhereTheyAreWhatChanges) {
  const std::string diff =
      runTool({{"clean", "--diff"}, "BEGIN:VCARD\r\r\nFN:a\r\r\nEND:VCARD\r\r\n"}).output;
  EXPECT_NE(diff.find("-FN:a␍"), std::string::npos) << diff;
  EXPECT_NE(diff.find("+FN:a␍␊\n"), std::string::npos) << diff;
}

TEST(CleanCommand, namesTheLineThatKeepsItFromWorking) {
  const Outcome outcome = runTool({{"clean"}, "Hello\n" + std::string(kBroken) + "-- \nme\n"});
  EXPECT_EQ(outcome.output, "Hello\n" + std::string(kBroken) + "-- \nme\n");
  EXPECT_EQ(outcome.errors, "cardwright: standard input: nothing was repaired, for line 1 stands "
                            "outside the cards: Hello\n");
}

} // namespace
} // namespace cardwright::tool
