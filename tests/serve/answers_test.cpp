#include "cli/process.h"
#include "serve/answers.h"
#include "serve/json_answer.h"

#include <cardwright/check.h>
#include <cardwright/face.h>

#include <gtest/gtest.h>

#include <set>

namespace cardwright::tool {
namespace {

std::vector<std::string> samples() {
  std::vector<std::string> texts;
  for (const char* const name : {"contacts", "mistakes", "broken-frames"}) {
    texts.push_back(fileContent(sourcePath("examples/" + std::string(name) + ".vcf")));
  }
  texts.insert(texts.end(), {"", "no card", std::string("\0\xFF\xFE", 3), "BEGIN:VCARD\nFN:a",
                             "BEGIN:VCARD\nFN:a&#13;b\xE9\nEND:VCARD\n"});
  return texts;
}

std::string text(const rapidjson::Value& object, const char* name) {
  return object.HasMember(name) ? object[name].GetString() : "(none)";
}

TEST(LookAnswer, tellsOfAllThatReadingAndCheckingFind) {
  for (const std::string& bytes : samples()) {
    const rapidjson::Document answer = jsonFrom(lookAnswer(bytes));
    CleanReport cleaning;
    static_cast<void>(cleanText(bytes, &cleaning));
    ReadReport reading;
    const VCardList cards = readCards(bytes, &reading);
    EXPECT_EQ(text(answer, "encoding"), cleaning.decoding.encoding);
    EXPECT_EQ(answer["droppedBytes"].GetUint64(), cleaning.decoding.droppedBytes);
    EXPECT_EQ(answer.HasMember("foreignLine"), cleaning.foreignLine.has_value());
    EXPECT_EQ(countOf(answer, "cards"), cards.size());
    EXPECT_EQ(itemsOf(answer, "cards").Size(), cards.size());
    EXPECT_EQ(countOf(answer, "repairs"), cleaning.repairs.size());
    EXPECT_EQ(itemsOf(answer, "repairs").Size(), cleaning.repairs.size());
    EXPECT_EQ(countOf(answer, "unusedLines"), reading.droppedLines.size());
    EXPECT_EQ(countOf(answer, "findings"), checkText(bytes).size());
  }
}

TEST(LookAnswer, hasWordsForEachKindOfRepair) {
  const rapidjson::Document answer = jsonFrom(lookAnswer(samples()[1]));
  std::set<std::string> codes;
  std::set<std::string> words;
  for (const auto& repair : itemsOf(answer, "repairs").GetArray()) {
    codes.insert(text(repair, "code"));
    words.insert(text(repair, "what"));
  }
  EXPECT_EQ(codes.size(), 8U);
  EXPECT_EQ(words.size(), 8U);
  EXPECT_FALSE(words.contains("Something was damaged"));
}

TEST(LookAnswer, putsBeforeAndAfterSideBySide) {
  const rapidjson::Document answer = jsonFrom(lookAnswer(
      "BEGIN:VCARD\nVERSION:3.0\nFN:Jane\nTEL:+15550100EMAIL:jane@example.com\nEND:VCARD\n"));
  ASSERT_EQ(itemsOf(answer, "repairs").Size(), 1U);
  const auto& repair = itemsOf(answer, "repairs")[0];
  EXPECT_EQ(text(repair, "code"), "merged-properties");
  EXPECT_EQ(repair["line"].GetInt(), 4);
  EXPECT_EQ(repair["card"].GetInt(), 1);
  EXPECT_EQ(text(repair["before"], "lead"), "TEL:+15550100");
  EXPECT_EQ(text(repair["before"], "changed"), "");
  EXPECT_EQ(text(repair["before"], "trail"), "EMAIL:jane@example.com");
  EXPECT_EQ(text(repair["after"], "changed"), "\n");
}

TEST(LookAnswer, showsCardsAsPeopleReadThem) {
  const rapidjson::Document answer = jsonFrom(
      lookAnswer("BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ada\r\nTEL;TYPE=HOME,PREF:1\r\nEND:VCARD\r\n"));
  const auto& card = itemsOf(answer, "cards")[0];
  EXPECT_EQ(text(card, "name"), "Ada");
  const auto& rows = itemsOf(card, "rows");
  ASSERT_GE(rows.Size(), 1U);
  EXPECT_EQ(text(rows[0], "label"), "Phone, home");
  EXPECT_EQ(text(rows[0], "value"), "1");
  EXPECT_STREQ(rows[0]["remarks"][0].GetString(), "preferred");
  EXPECT_FALSE(rows[0]["isBookkeeping"].GetBool());
}

TEST(LookAnswer, letsNothingHide) {
  const rapidjson::Document answer =
      jsonFrom(lookAnswer("BEGIN:VCARD\r\nVERSION:3.0\r\nFN:a\xE2\x80\xAE"
                          "b\r\nEND:VCARD\r\n"));
  EXPECT_EQ(text(itemsOf(answer, "cards")[0], "name"), "a<U+202E>b");
}

TEST(LookAnswer, staysSmallEnoughForABrowser) {
  std::string cards;
  for (int number = 0; number < 10'500; ++number) {
    cards += "BEGIN:VCARD\nVERSION:3.0\nFN:a\nEND:VCARD\n";
  }
  const rapidjson::Document many = jsonFrom(lookAnswer(cards));
  EXPECT_EQ(countOf(many, "cards"), 10'500U);
  EXPECT_EQ(itemsOf(many, "cards").Size(), 10'000U);

  std::string card = "BEGIN:VCARD\nVERSION:3.0\nFN:a\nNOTE:" + std::string(1'000'000, 'n') + "\n";
  for (int number = 0; number < 600; ++number) {
    card += "TEL:" + std::to_string(number) + "\n";
  }
  const std::string answer = lookAnswer(card + "END:VCARD\n");
  EXPECT_LT(answer.size(), 200'000U);
  const rapidjson::Document large = jsonFrom(answer);
  const auto& only = itemsOf(large, "cards")[0];
  EXPECT_EQ(itemsOf(only, "rows").Size(), 500U);
  EXPECT_GE(countOf(only, "rows"), 601U);

  std::string notes;
  for (int number = 0; number < 6'000; ++number) {
    notes += "BEGIN:VCARD\nVERSION:3.0\nNOTE:" + std::string(4'000, 'n') + "\nEND:VCARD\n";
  }
  const std::string answerToLong = lookAnswer(notes);
  EXPECT_LT(answerToLong.size(), 20U * 1024 * 1024);
  EXPECT_EQ(countOf(jsonFrom(answerToLong), "cards"), 6'000U);
}

TEST(ResultAnswer, isWhatTheCommandsWrite) {
  const TemporaryFolder folder;
  for (const std::string& bytes : samples()) {
    const std::string path = folder.write("in.vcf", bytes);
    EXPECT_EQ(resultAnswer(bytes, std::nullopt), runTool({{"clean", path}, ""}).output);
    const std::pair<const char*, VersionCode> versions[] = {{"2.1", 2}, {"3.0", 3}, {"4.0", 4}};
    for (const auto& [name, code] : versions) {
      EXPECT_EQ(resultAnswer(bytes, code), runTool({{"convert", "--to", name, path}, ""}).output);
    }
  }
}

TEST(ChangesAnswer, isWhatTheReportOfTheCommandTells) {
  const TemporaryFolder folder;
  const std::string report = folder.path() + "/report.json";
  for (const std::string& bytes : samples()) {
    const std::string path = folder.write("in.vcf", bytes);
    const std::pair<const char*, VersionCode> versions[] = {{"2.1", 2}, {"3.0", 3}, {"4.0", 4}};
    for (const auto& [name, code] : versions) {
      ASSERT_EQ(runTool({{"convert", "--to", name, "--report", report, path}, ""}).status, 0);
      std::vector<std::string> told;
      const rapidjson::Document reported = jsonFrom(fileContent(report));
      for (const auto& change : reported["changes"].GetArray()) {
        if (text(change, "step") == "convert" || text(change, "step") == "write") {
          told.push_back(std::to_string(change["card"].GetUint64()) + text(change, "code") +
                         text(change, "property"));
        }
      }
      std::vector<std::string> answered;
      const rapidjson::Document answer = jsonFrom(changesAnswer(bytes, code));
      for (const auto& change : itemsOf(answer, "changes").GetArray()) {
        answered.push_back(std::to_string(change["card"].GetUint64()) + text(change, "code") +
                           text(change, "property"));
      }
      std::sort(told.begin(), told.end());
      std::sort(answered.begin(), answered.end());
      EXPECT_EQ(answered, told);
    }
  }
}

TEST(ChangesAnswer, tellsLossesFromOtherChanges) {
  const rapidjson::Document answer =
      jsonFrom(changesAnswer("BEGIN:VCARD\nVERSION:3.0\nN:a\nFN:a\nPHOTO;ENCODING=b:AAA\n"
                             "NICKNAME:b\nno colon\nEND:VCARD\n",
                             4));
  std::size_t losses = 0;
  std::set<std::string> lost;
  for (const auto& change : itemsOf(answer, "changes").GetArray()) {
    if (change["isLoss"].GetBool()) {
      ++losses;
      lost.insert(text(change, "code"));
    }
  }
  EXPECT_EQ(lost, std::set<std::string>{"broken"});
  EXPECT_EQ(answer["losses"].GetUint64(), losses);
  EXPECT_EQ(answer["unusedLines"].GetUint64(), 1U);
}

} // namespace
} // namespace cardwright::tool
