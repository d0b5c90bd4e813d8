#include "cli/process.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

namespace cardwright::tool {
namespace {

constexpr std::string_view kCard =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ada\r\nNOTE;X-A=:no parameter\r\nEND:VCARD\r\n";
constexpr std::string_view kOld = "what was there before";

const std::vector<std::vector<std::string>>& writingCommands() {
  static const std::vector<std::vector<std::string>> kCommands = {
      {"clean"}, {"write", "--to", "3.0"}, {"convert", "--to", "4.0"}, {"join"}};
  return kCommands;
}

TEST(Interruption, leavesNoFileThatIsNotWhole) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    for (const std::vector<std::string>& command : writingCommands()) {
      const TemporaryFolder folder;
      const std::string target = folder.write("out.vcf", kOld);
      Invocation invocation{command, std::string(kCard)};
      invocation.arguments.insert(invocation.arguments.end(), {"-o", target});
      invocation.holdInputUntil = [&](const Outcome&) { return namesIn(folder.path()).size() > 1; };
      invocation.signal = signal;
      const Outcome outcome = runTool(invocation);
      EXPECT_EQ(outcome.status, -signal) << command.front();
      EXPECT_EQ(outcome.errors, "");
      EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"out.vcf"}) << command.front();
      EXPECT_EQ(fileContent(target), kOld);
    }
  }
}

TEST(Interruption, leavesWholeFilesOfCardsOnly) {
  const TemporaryFolder folder;
  std::string text;
  for (int number = 0; number < 3000; ++number) {
    text.append(kCard);
  }
  const std::string input = folder.write("in.vcf", text);
  const std::string people = folder.path() + "/people";
  Invocation invocation{{"split", "-d", people, input}, ""};
  invocation.holdInputUntil = [&](const Outcome&) {
    return std::filesystem::exists(people + "/Ada 20.vcf");
  };
  invocation.signal = SIGINT;
  EXPECT_EQ(runTool(invocation).status, -SIGINT);
  for (const std::string& name : namesIn(people)) {
    EXPECT_TRUE(name.ends_with(".vcf")) << name;
    EXPECT_EQ(fileContent(people + "/" + name), kCard);
  }
}

TEST(Pipe, endsEachCommandQuietlyWhenItsReaderHasSeenEnough) {
  std::string text;
  for (int count = 0; count < 20'000; ++count) {
    text.append("BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ada\r\nN:Ada\r\nEND:VCARD\r\n");
  }
  std::vector<std::vector<std::string>> commands = writingCommands();
  commands.insert(commands.end(), {{"show"}, {"json"}, {"json", "--pretty"}});
  for (const std::vector<std::string>& command : commands) {
    Invocation invocation{command, text};
    invocation.readOnly = 10;
    const Outcome outcome = runTool(invocation);
    EXPECT_EQ(outcome.status, 0) << command.front();
    EXPECT_EQ(outcome.errors, "") << command.front();
  }
}

TEST(Pipe, endsTheListOfFindingsQuietly) {
  std::string text;
  for (int count = 0; count < 20'000; ++count) {
    text.append(kCard);
  }
  Invocation invocation{{"check", "--all"}, text};
  invocation.readOnly = 10;
  const Outcome outcome = runTool(invocation);
  EXPECT_EQ(outcome.status, 3); // What was found was found.
  EXPECT_EQ(outcome.errors, "");
}

TEST(Pipe, leavesNoReportOfWhatNobodyRead) {
  const TemporaryFolder folder;
  std::string text;
  for (int count = 0; count < 20'000; ++count) {
    text.append(kCard);
  }
  Invocation invocation{{"join", "-q", "--report", folder.path() + "/report.json"}, text};
  invocation.readOnly = 10;
  EXPECT_EQ(runTool(invocation).status, 0);
  EXPECT_TRUE(namesIn(folder.path()).empty());
}

} // namespace
} // namespace cardwright::tool
