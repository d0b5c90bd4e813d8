#include "support/corpus_test.h"

#include "cli/process.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace cardwright::tool {
namespace {

/// What "count --json" tells.
rapidjson::Document countsOf(const std::vector<std::string>& options,
                             const std::vector<std::string>& files) {
  std::vector<std::string> arguments{"count", "--json"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  arguments.insert(arguments.end(), files.begin(), files.end());
  const Outcome outcome = runTool({arguments, ""});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  rapidjson::Document document;
  document.Parse(outcome.output.c_str());
  EXPECT_FALSE(document.HasParseError());
  return document;
}

/// A report's sums, which must add up.
rapidjson::Document reportOf(std::vector<std::string> command, const std::string& report,
                             const std::vector<std::string>& files) {
  command.insert(command.end(), {"--quiet", "--report", report});
  command.insert(command.end(), files.begin(), files.end());
  const Outcome outcome = runTool({command, ""});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  rapidjson::Document document;
  document.Parse(fileContent(report).c_str());
  EXPECT_FALSE(document.HasParseError());
  const auto& sums = document["sums"];
  const auto number = [&sums](const char* name) { return sums[name].GetUint64(); };
  EXPECT_EQ(number("cardsIn"), number("cardsOut"));
  EXPECT_EQ(number("propertiesIn") + number("propertiesAdded"),
            number("propertiesOut") + number("propertiesMerged") + number("propertiesDropped"));
  return document;
}

class CorpusFiles : public CorpusTest {
 protected:
  void SetUp() override {
    CorpusTest::SetUp();
    for (const auto& file : files()) {
      m_files.push_back(file.string());
    }
  }

  std::vector<std::string> m_files;
  TemporaryFolder m_folder;
};

TEST_F(CorpusFiles, areBorneByEachCommandThatOnlyReads) {
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"show"}, {"json"}, {"count"}, {"check", "--all"}, {"check"}}) {
    std::vector<std::string> arguments = command;
    arguments.insert(arguments.end(), m_files.begin(), m_files.end());
    const Outcome outcome = runTool({arguments, ""});
    EXPECT_EQ(outcome.status, command.front() == "check" ? 3 : 0) << command.front();
    EXPECT_FALSE(outcome.output.empty());
  }
}

TEST_F(CorpusFiles, holdTheSameWhenTheyAreJoined) {
  const rapidjson::Document counts = countsOf({}, m_files);
  const std::string joined = m_folder.path() + "/joined.vcf";
  static_cast<void>(reportOf({"join", "-o", joined}, m_folder.path() + "/report.json", m_files));
  const rapidjson::Document again = countsOf({"--no-clean"}, {joined});
  for (const char* const member : {"cards", "properties", "versions", "names"}) {
    EXPECT_TRUE(counts["total"][member] == again["total"][member]) << member;
  }
  std::vector<std::string> written;
  for (const std::string& file : m_files) {
    written.push_back(m_folder.path() + "/" + std::to_string(written.size()) + ".vcf");
    static_cast<void>(
        reportOf({"join", "-o", written.back()}, m_folder.path() + "/report.json", {file}));
  }
  const rapidjson::Document alone = countsOf({"--no-clean"}, written);
  const auto& files = counts["files"];
  ASSERT_EQ(alone["files"].Size(), files.Size());
  for (rapidjson::SizeType at = 0; at < files.Size(); ++at) {
    for (const char* const member : {"cards", "properties", "versions", "names"}) {
      EXPECT_TRUE(files[at][member] == alone["files"][at][member]) << m_files[at] << ": " << member;
    }
  }
}

TEST_F(CorpusFiles, holdTheSameWhenTheyAreSplit) {
  const rapidjson::Document counts = countsOf({}, m_files);
  const std::string people = m_folder.path() + "/people";
  static_cast<void>(reportOf({"split", "-d", people}, m_folder.path() + "/report.json", m_files));
  std::vector<std::string> written;
  for (const auto& entry : std::filesystem::directory_iterator(people)) {
    EXPECT_EQ(entry.path().extension(), ".vcf");
    written.push_back(entry.path().string());
  }
  EXPECT_EQ(written.size(), counts["total"]["cards"].GetUint64());
  const rapidjson::Document again = countsOf({"--no-clean"}, written);
  for (const auto& file : again["files"].GetArray()) {
    EXPECT_EQ(file["cards"].GetUint64(), 1U) << file["file"].GetString();
  }
  for (const char* const member : {"cards", "properties", "versions", "names"}) {
    EXPECT_TRUE(counts["total"][member] == again["total"][member]) << member;
  }
}

} // namespace
} // namespace cardwright::tool
