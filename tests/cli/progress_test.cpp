#include "cli/process.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace cardwright::tool {
namespace {

constexpr std::string_view kCard =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ada\r\nno colon\r\nEND:VCARD\r\n";
constexpr std::string_view kWiped = "\r\x1B[K";

using Clock = std::chrono::steady_clock;

/// Holds the input for a time.
std::function<bool(const Outcome&)> forMilliseconds(int milliseconds) {
  const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
  return [end](const Outcome&) { return Clock::now() >= end; };
}

class ProgressBar : public testing::Test {
 protected:
  void SetUp() override {
    if (!hasTerminals()) {
      GTEST_SKIP() << "there are no terminals";
    }
  }
};

TEST_F(ProgressBar, isDrawnOnATerminalAndWipedInTheEnd) {
  for (const std::vector<std::string>& command : {std::vector<std::string>{"clean"},
                                                  {"convert", "--to", "3.0"},
                                                  {"count"},
                                                  {"check"},
                                                  {"json"},
                                                  {"show"},
                                                  {"join"},
                                                  {"split", "-d", "."}}) {
    const TemporaryFolder folder;
    Invocation invocation{command, std::string(kCard)};
    if (command.front() == "split") {
      invocation.arguments.back() = folder.path();
    }
    invocation.hasErrorTerminal = true;
    invocation.holdInputUntil = [](const Outcome& outcome) {
      return outcome.errors.find("] 1 s") != std::string::npos;
    };
    const Outcome outcome = runTool(invocation);
    const std::size_t bar = outcome.errors.find("\rreading [");
    ASSERT_NE(bar, std::string::npos) << command.front();
    EXPECT_NE(outcome.errors.find(kWiped, bar), std::string::npos) << command.front();
    EXPECT_LT(outcome.errors.rfind("reading ["), outcome.errors.rfind(kWiped));
    for (std::size_t at = 0; (at = outcome.errors.find("reading [", at)) != std::string::npos;
         ++at) {
      EXPECT_LT(outcome.errors.find("\x1B[K", at) - at, 80U);
    }
  }
}

TEST_F(ProgressBar, givesWayToMessages) {
  Invocation invocation{{"json"}, std::string(kCard)};
  invocation.hasErrorTerminal = true;
  invocation.holdInputUntil = [](const Outcome& outcome) {
    return outcome.errors.find("reading [") != std::string::npos;
  };
  const Outcome outcome = runTool(invocation);
  const std::size_t message = outcome.errors.find("cardwright: standard input: 1 line");
  ASSERT_NE(message, std::string::npos);
  EXPECT_TRUE(outcome.errors.substr(0, message).ends_with(kWiped));
}

TEST_F(ProgressBar, staysAwayWithinTheFirstSecond) {
  Invocation invocation{{"json"}, std::string(kCard)};
  invocation.hasErrorTerminal = true;
  invocation.holdInputUntil = forMilliseconds(300);
  EXPECT_EQ(runTool(invocation).errors.find("reading"), std::string::npos);
}

TEST_F(ProgressBar, staysAwayWhenAskedToBeQuiet) {
  Invocation invocation{{"convert", "--to", "3.0", "--quiet"}, std::string(kCard)};
  invocation.hasErrorTerminal = true;
  invocation.holdInputUntil = forMilliseconds(1500);
  EXPECT_EQ(runTool(invocation).errors.find("reading"), std::string::npos);
}

TEST(Progress, isForTerminalsOnly) {
  Invocation invocation{{"json"}, std::string(kCard)};
  invocation.holdInputUntil = forMilliseconds(1500);
  EXPECT_EQ(runTool(invocation).errors.find("reading"), std::string::npos);
}

} // namespace
} // namespace cardwright::tool
