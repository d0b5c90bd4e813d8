#include "cli/process.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <filesystem>
#include <string>
#include <vector>

namespace cardwright::tool {
namespace {

using Names = std::vector<std::string>;

std::string cardOf(const std::string& lines) {
  return "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "END:VCARD\r\n";
}

TEST(SplitCommand, writesEachCardAsItStandsToAFileOfItsName) {
  const TemporaryFolder folder;
  const std::string people = folder.path() + "/new/people";
  const std::string ada = "BEGIN:VCARD\nVERSION:3.0\nno colon\nitem1.fn:Ad\n a\nEND:VCARD\n";
  const Outcome outcome =
      runTool({{"split", "-d", people}, ada + "\n" + cardOf("ORG:Works;Shop\r\n") + cardOf("")});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors,
            "cardwright: 3 cards in, 3 out, 0 repaired; 6 properties in, 6 out, 0 dropped\n");
  EXPECT_EQ(namesIn(people), (Names{"Ada.vcf", "Works, Shop.vcf", "card-3.vcf"}));
  EXPECT_EQ(fileContent(people + "/Ada.vcf"), "BEGIN:VCARD\r\nVERSION:3.0\r\nno colon\r\n"
                                              "item1.fn:Ad\r\n a\r\nEND:VCARD\r\n");
}

TEST(SplitCommand, numbersCardsOfOneName) {
  const TemporaryFolder folder;
  const std::string file = folder.write("in.vcf", cardOf("FN:Ada\r\n") + cardOf("FN:ADA\r\n"));
  const std::string people = folder.path() + "/people";
  EXPECT_EQ(runTool({{"split", "--quiet", "-d", people, file, file}, ""}).errors, "");
  EXPECT_EQ(namesIn(people), (Names{"ADA 2.vcf", "ADA 4.vcf", "Ada 3.vcf", "Ada.vcf"}));
}

TEST(SplitCommand, staysInItsFolderWhateverCardsAreCalled) {
  const TemporaryFolder folder;
  const std::string people = folder.path() + "/people";
  std::string text;
  const Names hostile{"../up",
                      "/etc/cardwright-test",
                      "..",
                      ".",
                      ".hidden",
                      "-d",
                      "a\\nb",
                      "\x1B[2J",
                      std::string(5000, 'x'),
                      "NUL",
                      "a/../../b",
                      "\xE2\x80\xAE"
                      "x"};
  for (const std::string& name : hostile) {
    text += cardOf("FN:" + name + "\r\n");
  }
  const Outcome outcome = runTool({{"split", "-d", people}, text});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(namesIn(folder.path()), Names{"people"});
  const Names names = namesIn(people);
  EXPECT_EQ(names.size(), hostile.size());
  for (const std::string& name : names) {
    EXPECT_FALSE(name.starts_with('.') || name.starts_with('-')) << name;
    EXPECT_LE(name.size(), 143U);
    EXPECT_TRUE(std::none_of(name.begin(), name.end(), [](char byte) {
      return static_cast<unsigned char>(byte) < 0x20 || byte == '\\';
    })) << name;
  }
}

TEST(SplitCommand, replacesNothingUnlessForced) {
  const TemporaryFolder folder;
  const std::string there = folder.write("Ada.vcf", "precious");
  const std::string text = cardOf("FN:Bea\r\n") + cardOf("FN:Ada\r\n");
  const Outcome refused = runTool({{"split", "-d", folder.path()}, text});
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.errors, "cardwright: " + there + ": File exists; --force replaces it\n");
  EXPECT_EQ(namesIn(folder.path()), Names{"Ada.vcf"});
  EXPECT_EQ(fileContent(there), "precious");

  EXPECT_EQ(runTool({{"split", "--force", "-d", folder.path()}, text}).status, 0);
  EXPECT_EQ(fileContent(there), cardOf("FN:Ada\r\n"));
  EXPECT_EQ(namesIn(folder.path()), (Names{"Ada.vcf", "Bea.vcf"}));
}

TEST(SplitCommand, writesThroughNoLink) {
  const TemporaryFolder folder;
  const std::string link = folder.path() + "/Ada.vcf";
  const std::string text = cardOf("FN:Ada\r\n");
  std::filesystem::create_symlink("nowhere", link);
  EXPECT_EQ(runTool({{"split", "-d", folder.path()}, text}).status, 1);
  EXPECT_EQ(namesIn(folder.path()), Names{"Ada.vcf"});
  EXPECT_EQ(runTool({{"split", "--force", "-d", folder.path()}, text}).status, 0);
  EXPECT_FALSE(std::filesystem::is_symlink(link));
  EXPECT_EQ(namesIn(folder.path()), Names{"Ada.vcf"});
}

TEST(SplitCommand, tellsWhatCannotBeWritten) {
  const TemporaryFolder folder;
  const std::string file = folder.write("file", "");
  const Outcome outcome = runTool({{"split", "-d", file}, cardOf("FN:Ada\r\n")});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors.find("cardwright: " + file + ": "), 0U) << outcome.errors;
  EXPECT_EQ(runTool({{"split"}, ""}).status, 2);
}

TEST(SplitCommand, tellsWhatStandsOutsideOfCards) {
  const TemporaryFolder folder;
  const std::string people = folder.path() + "/people";
  const Outcome outcome =
      runTool({{"split", "-q", "-d", people}, cardOf("FN:Ada\r\n") + "bye\r\n"});
  EXPECT_NE(outcome.errors.find("left out, for no card follows: bye"), std::string::npos)
      << outcome.errors;
  EXPECT_EQ(namesIn(people), Names{"Ada.vcf"});
}

TEST(SplitCommand, endsTheCardThatIsNotEndedAndTakesAFrameApart) {
  const TemporaryFolder folder;
  EXPECT_EQ(runTool({{"split", "-q", "-d", folder.path()}, "BEGIN:VCARD\nFN:Ada"}).errors, "");
  EXPECT_EQ(fileContent(folder.path() + "/Ada.vcf"), "BEGIN:VCARD\r\nFN:Ada\r\nEND:VCARD\r\n");

  // Two cards by the reader's rules, though one line end only stands between them.
  const std::string people = folder.path() + "/people";
  const Outcome outcome =
      runTool({{"split", "-d", people},
               "BEGIN:VCARD\nFN:a\nX-ADDRESSBOOKSERVER-A:b;END:VCARD;X-ADDRESSBOOKSERVER-B:c\n"
               "BEGIN:VCARD\nFN:b\nEND:VCARD\n"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.errors.find("2 cards in, 2 out"), std::string::npos) << outcome.errors;
  EXPECT_EQ(namesIn(people), (Names{"a.vcf", "b.vcf"}));
}

TEST(SplitCommand, repairsAndReportsIt) {
  const TemporaryFolder folder;
  const std::string people = folder.path() + "/people";
  const std::string report = folder.path() + "/report.json";
  const std::string text = cardOf("FN:Ada\r\n") + cardOf("FN:Bea\r\nTEL:1EMAIL:x\r\n");
  const Outcome outcome = runTool({{"split", "-d", people, "--report", report}, text});
  EXPECT_EQ(outcome.errors,
            "cardwright: standard input: Split merged properties starting at TEL\n"
            "cardwright: 2 cards in, 2 out, 1 repaired; 5 properties in, 6 out, 0 dropped, "
            "1 added\n");
  EXPECT_EQ(fileContent(people + "/Bea.vcf"), cardOf("FN:Bea\r\nTEL:1\r\nEMAIL:x\r\n"));
  rapidjson::Document document;
  document.Parse(fileContent(report).c_str());
  ASSERT_FALSE(document.HasParseError());
  EXPECT_STREQ(document["changes"][0]["code"].GetString(), "merged-properties");
  EXPECT_EQ(document["changes"][0]["card"].GetInt(), 2);
  EXPECT_EQ(document["sums"]["cardsOut"].GetInt(), 2);

  std::filesystem::remove_all(people);
  EXPECT_EQ(runTool({{"split", "--no-clean", "-d", people}, text}).status, 0);
  EXPECT_EQ(fileContent(people + "/Bea.vcf"), cardOf("FN:Bea\r\nTEL:1EMAIL:x\r\n"));
}

} // namespace
} // namespace cardwright::tool
