#include "cli/process.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright::tool {
namespace {

constexpr std::string_view kCard = "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:a\r\nFOO:1\r\nFOO:2\r\n"
                                   "BDAY:someday\r\nEND:VCARD\r\n";

TEST(CheckCommand, tellsFindingsAsCompilersDo) {
  const Outcome outcome = runTool({{"check"}, std::string(kCard)});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.output,
            "standard input:4:1: warning: a property that no version has and no X- marks: FOO "
            "(2 times) [unknown-property]\n"
            "standard input:6:6: error: a date that cannot be understood: BDAY [bad-date]\n");
}

TEST(CheckCommand, tellsEachTimeWhenAsked) {
  const std::string output = runTool({{"check", "--all"}, std::string(kCard)}).output;
  EXPECT_NE(output.find("input:4:1:"), std::string::npos);
  EXPECT_NE(output.find("input:5:1:"), std::string::npos);
  EXPECT_EQ(output.find("times"), std::string::npos);
}

TEST(CheckCommand, writesJson) {
  const Outcome outcome =
      runTool({{"check", "--json"}, "BEGIN:VCARD\r\nVERSION:4.0\r\nEND:VCARD\r\n"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(
      outcome.output,
      "{\"findings\":[{\"file\":\"-\",\"line\":1,\"column\":1,\"offset\":0,\"severity\":\"error\","
      "\"code\":\"missing-fn\",\"text\":\"no FN, which the version asks for\",\"count\":1}]}\n");
}

TEST(CheckCommand, findsNothingInASoundFile) {
  const std::string sound = "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:a\r\nEND:VCARD\r\n";
  const Outcome outcome = runTool({{"check"}, sound});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(runTool({{"check", "--json"}, sound}).output, "{\"findings\":[]}\n");
}

TEST(CheckCommand, checksTheFilesThatItCanRead) {
  const TemporaryFolder folder;
  const std::string file = folder.write("a.vcf", kCard);
  const Outcome outcome = runTool({{"check", folder.path() + "/missing", file}, ""});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(outcome.output.starts_with(file + ":4:1: "));
}

TEST(CheckCommand, letsNoFileSteerTheTerminal) {
  const std::string text = "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:a\r\nA\x1B[31m:b\r\nEND:VCARD\r\n";
  EXPECT_EQ(runTool({{"check"}, text}).output.find('\x1B'), std::string::npos);
}

} // namespace
} // namespace cardwright::tool
