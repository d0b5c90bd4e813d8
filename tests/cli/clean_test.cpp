#include "cli/process.h"
#include "support/address_book.h"
#include "support/corpus_test.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

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
  EXPECT_EQ(outcome.errors,
            "cardwright: standard input" + std::string(kSummary) +
                "cardwright: 1 card in, 1 out, 1 repaired; 2 properties in, 3 out, 0 dropped, 1 "
                "added\n");
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
  const std::string empty = folder.write("empty.vcf", "");
  EXPECT_EQ(runTool({{"clean", empty, open, empty, open}, ""}).output,
            "BEGIN:VCARD\nEND:VCARD\r\nBEGIN:VCARD\nEND:VCARD");
}

TEST(CleanCommand, leavesLargeFilesByteForByteAmongSmallOnes) {
  AddressBookOptions options;
  options.cards = 8'000; // more than a large page, and than what is gathered before it is written
  const std::string large = addressBook(options);
  const TemporaryFolder folder;
  const std::string largeFile = folder.write("large.vcf", large);
  const std::string smallFile = folder.write("small.vcf", kSound);
  const std::string both = large + std::string(kSound);
  EXPECT_TRUE(
      runTool({{"clean", largeFile, smallFile, largeFile, largeFile, smallFile}, ""}).output ==
      both + large + both);
  EXPECT_TRUE(runTool({{"clean", smallFile, "-"}, large}).output == std::string(kSound) + large);
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
  const Outcome outcome =
      runTool({{"clean", "-q"}, "Hello\n" + std::string(kBroken) + "-- \nme\n"});
  EXPECT_EQ(outcome.output, "Hello\n" + std::string(kBroken) + "-- \nme\n");
  EXPECT_EQ(outcome.errors, "cardwright: standard input: nothing was repaired, for line 1 stands "
                            "outside the cards: Hello\n");
}

constexpr std::string_view kDamaged =
    "BEGIN:VCARD\nVERSION:3.0\nFN:Ada\nno colon\nEND:VCARD\n"
    "BEGIN:VCARD\nVERSION:3.0\nBEGIN:VCARD\nX-CREATED:1\nTEL:1EMAIL:b\nX-CREATED:2\n"
    "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1&#13;&#10;urn:uuid:2\n"
    "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1\nADR:;;Main StreetX-ABLABEL\nEND:VCARD \n"
    "begin:vcard\nFN:Joe\nNOTE:a&#13;&#10;b\nEND:VCARD\n";
constexpr std::string_view kDamagedSums =
    "cardwright: 3 cards in, 3 out, 2 repaired; 13 properties in, 13 out, 2 dropped, 2 added\n";

rapidjson::Document jsonOf(const std::string& path) {
  rapidjson::Document document;
  document.Parse(fileContent(path).c_str());
  return document;
}

TEST(CleanCommand, endsWithTheSumsWhereverItWrites) {
  const TemporaryFolder folder;
  const std::string file = folder.write("a.vcf", kDamaged);
  const std::string sound = folder.write("sound.vcf", kSound);
  const std::string other = folder.path() + "/b.vcf";
  const auto endOf = [](const Outcome& outcome) {
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    return outcome.errors.substr(outcome.errors.rfind("cardwright: "));
  };
  EXPECT_EQ(endOf(runTool({{"clean", file}, ""})), kDamagedSums);
  EXPECT_EQ(endOf(runTool({{"clean", "-o", other, file}, ""})), kDamagedSums);
  EXPECT_EQ(endOf(runTool({{"clean", file, "--in-place"}, ""})), kDamagedSums);
  EXPECT_EQ(endOf(runTool({{"clean", file, sound}, ""})),
            "cardwright: 4 cards in, 4 out, 0 repaired; 15 properties in, 15 out, 0 dropped\n");
}

TEST(CleanCommand, countsPiecesOfTornLinesAsMerged) {
  EXPECT_EQ(runTool({{"clean"},
                     "BEGIN:VCARD\nTEL:123NOTE;ENCODING=QUOTED-PRINTABLE:a=\nb\nEMAIL:x\n"
                     "END:VCARD\n"})
                .errors,
            "cardwright: standard input" + std::string(kSummary) +
                "cardwright: 1 card in, 1 out, 1 repaired; 3 properties in, 3 out, 0 dropped, 1 "
                "added, 1 merged\n");
}

TEST(CleanCommand, countsInTheEncodingThatWasNamed) {
  std::string text;
  for (const char unit : kSound) {
    text.append({unit, '\0'});
  }
  EXPECT_EQ(runTool({{"clean", "--encoding", "utf-16le"}, text}).errors,
            "cardwright: 1 card in, 1 out, 0 repaired; 2 properties in, 2 out, 0 dropped\n");
}

TEST(CleanCommand, keepsTheSumsToItselfWhenAsked) {
  EXPECT_EQ(runTool({{"clean", "--quiet"}, std::string(kBroken)}).errors,
            "cardwright: standard input" + std::string(kSummary));
  EXPECT_EQ(runTool({{"clean", "-q"}, std::string(kSound)}).errors, "");
}

TEST(CleanCommand, tellsNoSumsWhereItWritesNoCards) {
  for (const char* mode : {"--check", "--diff"}) {
    EXPECT_EQ(runTool({{"clean", mode}, std::string(kBroken)}).errors,
              "cardwright: standard input" + std::string(kSummary));
  }
}

TEST(CleanCommand, leavesOutOfTheSumsWhatItCouldNotRead) {
  const TemporaryFolder folder;
  const std::string sound = folder.write("sound.vcf", kSound);
  const Outcome outcome = runTool({{"clean", folder.path() + "/missing", sound}, ""});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(outcome.errors.ends_with(
      "cardwright: 1 card in, 1 out, 0 repaired; 2 properties in, 2 out, 0 dropped\n"))
      << outcome.errors;
}

TEST(CleanCommand, reportsEachRepairWithItsCardAndPlace) {
  const TemporaryFolder folder;
  const std::string report = folder.path() + "/report.json";
  for (const std::vector<std::string>& mode :
       {std::vector<std::string>{}, {"-q"}, {"--check"}, {"--diff"}}) {
    std::vector<std::string> arguments{"clean", "--report", report};
    arguments.insert(arguments.end(), mode.begin(), mode.end());
    static_cast<void>(runTool({arguments, std::string(kDamaged)}));
    const rapidjson::Document document = jsonOf(report);
    ASSERT_FALSE(document.HasParseError());
    std::vector<std::string> repairs;
    for (const auto& change : document["changes"].GetArray()) {
      EXPECT_STREQ(change["file"].GetString(), "-");
      EXPECT_STREQ(change["step"].GetString(), "repair");
      const std::string text = change["text"].GetString();
      EXPECT_EQ(kDamaged.substr(change["offset"].GetUint64(), text.size()), text);
      repairs.push_back(std::string(change["code"].GetString()) + " in card " +
                        std::to_string(change["card"].GetUint64()) + ", line " +
                        std::to_string(change["line"].GetUint64()) + ": " + text);
    }
    EXPECT_EQ(repairs,
              (std::vector<std::string>{
                  "repeated-property in card 2, line 9: X-CREATED:1",
                  "merged-properties in card 2, line 10: TEL:1EMAIL:b",
                  "member-entities in card 2, line 12: "
                  "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1&#13;&#10;urn:uuid:2",
                  "repeated-property in card 2, line 13: X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1",
                  "torn-fragment in card 2, line 14: ADR:;;Main StreetX-ABLABEL",
                  "note-entities in card 3, line 18: NOTE:a&#13;&#10;b"}));
    const auto& sums = document["sums"];
    EXPECT_EQ(sums["cardsRepaired"].GetUint64(), 2U);
    EXPECT_EQ(sums["propertiesDropped"].GetUint64(), 2U);
    EXPECT_EQ(sums["propertiesAdded"].GetUint64(), 2U);
    std::filesystem::remove(report);
  }
}

TEST(CleanCommand, reportsBytesDroppedInDecoding) {
  const TemporaryFolder folder;
  const std::string report = folder.path() + "/report.json";
  const std::string text = "BEGIN:VCARD\nFN:\xC3\xA9\xC3\xA9\xFF\nEND:VCARD\n";
  EXPECT_EQ(runTool({{"clean", "-q", "--report", report}, text}).status, 0);
  const rapidjson::Document document = jsonOf(report);
  ASSERT_FALSE(document.HasParseError());
  ASSERT_EQ(document["changes"].Size(), 1U);
  EXPECT_STREQ(document["changes"][0]["code"].GetString(), "dropped-bytes");
  EXPECT_EQ(document["changes"][0]["count"].GetUint64(), 1U);
  EXPECT_EQ(document["sums"]["propertiesOut"].GetUint64(), 1U);
}

using CorpusCleanSums = CorpusTest;

TEST_F(CorpusCleanSums, addUp) {
  const TemporaryFolder folder;
  const std::string report = folder.path() + "/report.json";
  const std::string written = folder.path() + "/written.vcf";
  std::vector<std::string> copies;
  for (const auto& file : files()) {
    copies.push_back(folder.write(std::to_string(copies.size()) + ".vcf", bytesOf(file)));
  }
  const auto sumsOf = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--quiet", "--report", report});
    arguments.insert(arguments.end(), copies.begin(), copies.end());
    EXPECT_EQ(runTool({arguments, ""}).status, 0);
    return jsonOf(report);
  };
  const auto numberIn = [](const rapidjson::Document& document, const char* name) {
    return document["sums"][name].GetUint64();
  };
  const rapidjson::Document before = sumsOf({"write", "--to", "3.0", "--no-clean", "-o", written});
  const rapidjson::Document cleaning = sumsOf({"clean", "--in-place="});
  const rapidjson::Document after = sumsOf({"write", "--to", "3.0", "--no-clean", "-o", written});
  const auto number = [&](const char* name) { return numberIn(cleaning, name); };
  EXPECT_GT(number("cardsRepaired"), 0U);
  EXPECT_EQ(number("cardsIn"), number("cardsOut"));
  EXPECT_EQ(number("propertiesIn") + number("propertiesAdded"),
            number("propertiesOut") + number("propertiesMerged") + number("propertiesDropped"));
  std::uint64_t repeated = 0;
  for (const auto& change : cleaning["changes"].GetArray()) {
    repeated += change["code"] == "repeated-property" ? 1U : 0U;
  }
  EXPECT_EQ(number("propertiesDropped"), repeated);
  // What went in was there, and what came out is.
  EXPECT_EQ(number("cardsIn"), numberIn(before, "cardsIn"));
  EXPECT_EQ(number("propertiesIn"), numberIn(before, "propertiesIn"));
  EXPECT_EQ(number("cardsOut"), numberIn(after, "cardsIn"));
  EXPECT_EQ(number("propertiesOut"), numberIn(after, "propertiesIn"));
}

} // namespace
} // namespace cardwright::tool
