#include "cli/process.h"
#include "support/corpus_test.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <filesystem>
#include <string>

namespace cardwright::tool {
namespace {

constexpr std::string_view kCard =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ada\r\nN:Ada;;;;\r\n"
    "TEL;TYPE=pref:1EMAIL:b\r\nno colon\r\nCLASS:PUBLIC\r\nEND:VCARD\r\n";

TEST(ConvertCommand, writesCardsOfTheVersionAndTellsTheSums) {
  const Outcome outcome = runTool({{"convert", "--to", "4.0"}, std::string(kCard)});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Ada\r\nN:Ada;;;;\r\nEMAIL:b\r\n"
                            "TEL;PREF=1:1\r\nX-CLASS:PUBLIC\r\nEND:VCARD\r\n");
  EXPECT_TRUE(outcome.errors.ends_with(
      "cardwright: 1 card in, 1 out, 1 repaired; 7 properties in, 6 out, 1 dropped\n"))
      << outcome.errors;
}

TEST(ConvertCommand, tellsWhatWasAddedAndMerged) {
  const std::string text = "BEGIN:VCARD\r\nNICKNAME:Ada\r\nADR:;;a;;;;\r\nLABEL:b\r\nEND:VCARD\r\n";
  EXPECT_EQ(runTool({{"convert", "--to", "4.0"}, text}).errors,
            "cardwright: 1 card in, 1 out, 0 repaired; 3 properties in, 4 out, 0 dropped, 2 added, "
            "1 merged\n");
}

TEST(ConvertCommand, keepsTheSumsToItselfWhenAsked) {
  const std::string text = "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:a\r\nEND:VCARD\r\n";
  EXPECT_EQ(runTool({{"convert", "--to", "4.0", "--quiet"}, text}).errors, "");
  EXPECT_EQ(runTool({{"write", "--to", "4.0", "-q"}, text}).errors, "");
  EXPECT_EQ(runTool({{"write", "--to", "4.0"}, text}).errors,
            "cardwright: 1 card in, 1 out, 0 repaired; 2 properties in, 2 out, 0 dropped\n");
}

TEST(ConvertCommand, tellsOfEachKindOfChangeOnce) {
  const std::string text =
      "BEGIN:VCARD\r\nVERSION:2.1\r\nN:a\r\nNOTE;ENCODING=QUOTED-PRINTABLE:=41\r\n"
      "TITLE;ENCODING=QUOTED-PRINTABLE:=42\r\nX-A;X-B=\" \":c\r\nEND:VCARD\r\n";
  EXPECT_EQ(runTool({{"write", "--to", "2.1", "-q"}, text}).errors,
            "cardwright: standard input: encoding left out that the value is not written in, 2 "
            "times: first TITLE of card 1\n"
            "cardwright: standard input: parameter without a name or a value left out: X-A of card "
            "1\n");
}

TEST(ConvertCommand, wantsAVersionItKnows) {
  EXPECT_EQ(runTool({{"convert"}, std::string(kCard)}).status, 2);
  EXPECT_EQ(runTool({{"convert", "--to", "3"}, std::string(kCard)}).status, 2);
}

TEST(ConvertCommand, reportsEachRepairConversionAndLoss) {
  const TemporaryFolder folder;
  const std::string report = folder.path() + "/report.json";
  const std::string text =
      "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:\xFF"
      "a\r\nN:a;;;;\r\n"
      "TEL:1EMAIL:b\r\nno colon\r\nCLASS:PUBLIC\r\nX-A;X-B=\"  \":c\r\nEND:VCARD\r\n";
  EXPECT_EQ(
      runTool({{"convert", "--to", "4.0", "--encoding", "utf-8", "--report", report}, text}).status,
      0);
  rapidjson::Document document;
  document.Parse(fileContent(report).c_str());
  ASSERT_FALSE(document.HasParseError());
  std::vector<std::string> steps;
  for (const auto& change : document["changes"].GetArray()) {
    EXPECT_STREQ(change["file"].GetString(), "-");
    steps.push_back(std::string(change["step"].GetString()) + " " + change["code"].GetString());
  }
  EXPECT_EQ(steps, (std::vector<std::string>{"decode dropped-bytes", "repair merged-properties",
                                             "read no-colon", "convert parked",
                                             "convert re-encoded", "write parameter-left-out"}));
  EXPECT_EQ(document["changes"][1]["card"].GetInt(), 1);
  EXPECT_EQ(document["changes"][2]["line"].GetInt(), 6);
  EXPECT_STREQ(document["changes"][2]["text"].GetString(), "no colon");
  EXPECT_EQ(document["changes"][3]["card"].GetInt(), 1);
  EXPECT_STREQ(document["changes"][3]["target"].GetString(), "X-CLASS");
}

TEST(ConvertCommand, tellsAndReportsWhyNothingWasRepaired) {
  const TemporaryFolder folder;
  const std::string report = folder.path() + "/report.json";
  const std::string text = "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:a\r\nN:a;;;;\r\n"
                           "TEL:+15550100EMAIL:b\r\nEND:VCARD\r\nsent from afar\r\n";
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"convert", "--to", "4.0"}, {"write", "--to", "3.0"}, {"clean"}}) {
    std::vector<std::string> arguments = command;
    arguments.insert(arguments.end(), {"--report", report});
    const Outcome outcome = runTool({arguments, text});
    EXPECT_NE(outcome.errors.find("standard input: nothing was repaired, for line 7 stands outside "
                                  "the cards: sent from afar\n"),
              std::string::npos)
        << outcome.errors;
    rapidjson::Document document;
    document.Parse(fileContent(report).c_str());
    ASSERT_FALSE(document.HasParseError());
    const auto& change = document["changes"][0];
    EXPECT_STREQ(change["step"].GetString(), "clean");
    EXPECT_STREQ(change["code"].GetString(), "foreign-line");
    EXPECT_EQ(change["line"].GetInt(), 7);
    EXPECT_STREQ(change["text"].GetString(), "sent from afar");
  }
  EXPECT_EQ(runTool({{"convert", "--to", "4.0", "--no-clean"}, text}).errors.find("nothing was"),
            std::string::npos);
}

/// What a run reports about its sums.
rapidjson::Document sumsOf(const std::vector<std::string>& command, const std::string& report) {
  std::vector<std::string> arguments = command;
  arguments.insert(arguments.end(), {"--quiet", "--report", report});
  const Outcome outcome = runTool({arguments, ""});
  EXPECT_EQ(outcome.status, 0);
  rapidjson::Document document;
  document.Parse(fileContent(report).c_str());
  return document;
}

using CorpusSums = CorpusTest;

TEST_F(CorpusSums, addUp) {
  const TemporaryFolder folder;
  const std::string report = folder.path() + "/report.json";
  const std::string written = folder.path() + "/written.vcf";
  std::vector<std::string> paths;
  for (const auto& file : files()) {
    paths.push_back(file.string());
  }
  for (const std::vector<std::string>& verb : {std::vector<std::string>{"write", "--to", "3.0"},
                                               {"convert", "--to", "2.1"},
                                               {"convert", "--to", "3.0"},
                                               {"convert", "--to", "4.0"}}) {
    std::vector<std::string> command = verb;
    command.insert(command.end(), {"-o", written});
    command.insert(command.end(), paths.begin(), paths.end());
    const rapidjson::Document document = sumsOf(command, report);
    ASSERT_FALSE(document.HasParseError());
    const auto& sums = document["sums"];
    const auto number = [&sums](const char* name) { return sums[name].GetUint64(); };
    EXPECT_GT(number("propertiesIn"), 0U);
    EXPECT_EQ(number("cardsIn"), number("cardsOut"));
    EXPECT_EQ(number("propertiesIn") + number("propertiesAdded"),
              number("propertiesOut") + number("propertiesMerged") + number("propertiesDropped"));
    // What was written is there.
    const rapidjson::Document again =
        sumsOf({"write", "--to", "3.0", "--no-clean", "-o", written, written}, report);
    EXPECT_EQ(again["sums"]["cardsIn"].GetUint64(), number("cardsOut"));
    EXPECT_EQ(again["sums"]["propertiesIn"].GetUint64(), number("propertiesOut"));
  }
}

} // namespace
} // namespace cardwright::tool
