#include "cli/process.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <string>

namespace cardwright::tool {
namespace {

constexpr std::string_view kText =
    "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Ada\r\nTEL:1EMAIL:x\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nFN:Bea\r\nno colon\r\nitem1.tel:2\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:7\r\nFN:Cleo\r\nTEL:3\r\nEND:VCARD\r\n";

TEST(CountCommand, countsCardsVersionsPropertiesAndRepairs) {
  const Outcome outcome = runTool({{"count"}, std::string(kText)});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "cards                         3\n"
                            "  4.0                         1\n"
                            "  none                        1\n"
                            "  other                       1\n"
                            "properties                    9\n"
                            "  FN                          3\n"
                            "  TEL                         3\n"
                            "  VERSION                     2\n"
                            "  EMAIL                       1\n"
                            "repairs                       1\n"
                            "  merged-properties           1\n"
                            "lines that could not be used  1\n"
                            "  no-colon                    1\n");
}

TEST(CountCommand, countsTheFileAsItStandsWhenAsked) {
  const Outcome outcome = runTool({{"count", "--no-clean"}, std::string(kText)});
  EXPECT_NE(outcome.output.find("properties                    8\n"), std::string::npos)
      << outcome.output;
  EXPECT_NE(outcome.output.find("repairs                       0\n"), std::string::npos);
}

TEST(CountCommand, tellsOfEachFileAndOfAll) {
  const TemporaryFolder folder;
  const std::string file = folder.write("a.vcf", kText);
  const Outcome outcome = runTool({{"count", file, "-", folder.path() + "/missing"}, "nothing\n"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.output.find(file + ":\n  cards                       3\n"), 0U)
      << outcome.output;
  EXPECT_NE(outcome.output.find("\nstandard input:\n  cards                       0\n"),
            std::string::npos);
  EXPECT_NE(outcome.output.find("\nall 2 files:\ncards                         3\n"),
            std::string::npos);
}

TEST(CountCommand, writesJson) {
  const TemporaryFolder folder;
  const std::string file = folder.write("a.vcf", kText);
  const Outcome outcome = runTool({{"count", "--json", file, file}, ""});
  rapidjson::Document document;
  document.Parse(outcome.output.c_str());
  ASSERT_FALSE(document.HasParseError());
  ASSERT_EQ(document["files"].Size(), 2U);
  const auto& first = document["files"][0];
  EXPECT_STREQ(first["file"].GetString(), file.c_str());
  EXPECT_EQ(first["cards"].GetInt(), 3);
  EXPECT_EQ(first["versions"]["none"].GetInt(), 1);
  EXPECT_EQ(first["names"]["TEL"].GetInt(), 3);
  EXPECT_EQ(document["total"]["properties"].GetInt(), 18);
  EXPECT_EQ(document["total"]["repairs"]["merged-properties"].GetInt(), 2);
  EXPECT_EQ(document["total"]["droppedLines"]["no-colon"].GetInt(), 2);
}

TEST(CountCommand, canBeSteeredByNoName) {
  const Outcome outcome =
      runTool({{"count", "--no-clean"}, "BEGIN:VCARD\r\nX\x1B[2J-A:b\r\nEND:VCARD\r\n"});
  EXPECT_EQ(outcome.output.find('\x1B'), std::string::npos);
  EXPECT_NE(outcome.output.find("␛"), std::string::npos) << outcome.output;
}

} // namespace
} // namespace cardwright::tool
