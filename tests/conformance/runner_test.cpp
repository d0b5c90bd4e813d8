#include "conformance/case_error.h"
#include "conformance/runner.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace cardwright::conformance {
namespace {

Text reversed(TextView text) {
  return {text.rbegin(), text.rend()};
}

std::size_t raising(TextView text) {
  throw std::invalid_argument("cannot do it: " + std::to_string(text.size()));
}

/// A folder of case files that is removed afterwards.
class RunnerTest : public testing::Test {
 public:
  RunnerTest(const RunnerTest&) = delete;
  RunnerTest& operator=(const RunnerTest&) = delete;

 protected:
  RunnerTest() {
    std::string name = (std::filesystem::temp_directory_path() / "cardwright-XXXXXX").string();
    m_folder = mkdtemp(name.data());
    m_operations.add("Text::reversed", reversed);
    m_operations.add("Text::raising", raising);
  }
  ~RunnerTest() override {
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
  }

  void writeFile(const char* name, const std::string& content) const {
    std::ofstream(m_folder / name) << content;
  }

  /// Runs the folder; the output is in m_output.
  Runner run(std::vector<std::string> only = {}, std::size_t differences = 3) {
    Runner runner(m_operations, std::move(only), differences, m_output);
    forEachCase(m_folder, [&](const Case& testCase) { runner.run(testCase); });
    return runner;
  }

  [[nodiscard]] std::string messageOfRun() {
    try {
      run();
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "no error";
  }

  std::filesystem::path m_folder;
  OperationTable m_operations;
  std::ostringstream m_output;
};

TEST_F(RunnerTest, countsAgreedDifferingAndNotBuilt) {
  writeFile("b.jsonl", R"({"id":"b-1","op":"Text::upperCased","args":["a"],"expect":"A"})"
                       "\n");
  writeFile("a.jsonl", R"({"id":"a-1","op":"Text::reversed","args":["ab"],"expect":"ba"})"
                       "\n\n"
                       R"({"id":"a-2","op":"Text::reversed","args":["ab"],"expect":"ab"})");
  writeFile("c.txt", "no case");
  const Runner runner = run();
  EXPECT_EQ(runner.tallies().size(), 2U);
  EXPECT_EQ(runner.tallies().at("Text::reversed").agreed, 1U);
  EXPECT_EQ(runner.tallies().at("Text::reversed").differing, 1U);
  EXPECT_EQ(runner.tallies().at("Text::upperCased").notBuilt, 1U);
  EXPECT_EQ(runner.total().agreed, 1U);
  EXPECT_EQ(runner.total().differing, 1U);
  EXPECT_EQ(runner.total().notBuilt, 1U);
}

TEST_F(RunnerTest, printsTheFirstDifferencesOfEachOperation) {
  std::string lines;
  for (const char* id : {"1", "2", "3"}) {
    lines +=
        std::string(R"({"id":")") + id + R"(","op":"Text::reversed","args":["ab"],"expect":""})";
    lines += '\n';
  }
  writeFile("a.jsonl", lines);
  EXPECT_EQ(run({}, 1).total().differing, 3U);
  EXPECT_EQ(m_output.str(), "1  Text::reversed\n"
                            "  arguments  [\"ab\"]\n"
                            "  expected   \"\"\n"
                            "  got        \"ba\"\n\n");
}

TEST_F(RunnerTest, runsOnlyWhatIsAskedFor) {
  writeFile("a.jsonl", R"({"id":"1","op":"Text::reversed","args":["ab"],"expect":"ba"})"
                       "\n"
                       R"({"id":"2","op":"Other::reversed","args":["ab"],"expect":"ba"})");
  EXPECT_EQ(run({"Text::"}).tallies().count("Text::reversed"), 1U);
  EXPECT_EQ(run({"Text::"}).tallies().size(), 1U);
  EXPECT_EQ(run({"Text::reversed", "Other"}).tallies().size(), 2U);
  EXPECT_TRUE(run({"reversed"}).tallies().empty());
}

TEST_F(RunnerTest, takesAnExceptionForAResult) {
  writeFile("a.jsonl", R"({"id":"1","op":"Text::raising","args":["ab"],)"
                       R"("expect":{"raises":"cannot do it: 2"}})");
  EXPECT_EQ(run().total().agreed, 1U);
}

TEST_F(RunnerTest, countsBrokenArgumentsAsDiffering) {
  for (const char* arguments : {"[]", R"(["a","b"])", "[1]", "[null]", R"(["%x"])", "{}"}) {
    writeFile("a.jsonl", std::string(R"({"id":"1","op":"Text::reversed","args":)") + arguments +
                             R"(,"expect":{"raises":"x"}})");
    EXPECT_EQ(run().total().differing, 1U) << arguments;
  }
  EXPECT_NE(m_output.str().find("broken case"), std::string::npos);
}

TEST_F(RunnerTest, namesThePlaceOfALineThatIsNoCase) {
  const std::string file = (m_folder / "a.jsonl").string();
  for (const char* line : {"{", "[]", "{}", R"({"id":1,"op":"x","args":[],"expect":1})",
                           R"({"id":"1","op":"x","args":[]})"}) {
    writeFile("a.jsonl", std::string("\n") + line);
    EXPECT_TRUE(messageOfRun().starts_with(file + ":2: ")) << messageOfRun();
  }
}

TEST_F(RunnerTest, saysThatAFolderHasNoCases) {
  EXPECT_EQ(messageOfRun(), m_folder.string() + ": no *.jsonl file in it");
  std::filesystem::remove(m_folder);
  EXPECT_EQ(messageOfRun(), m_folder.string() + ": No such file or directory");
}

} // namespace
} // namespace cardwright::conformance
