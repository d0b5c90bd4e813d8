#include "serve/served_tool.h"

#include <gtest/gtest.h>

#include <csignal>
#include <regex>
#include <stdexcept>

namespace cardwright::tool {

namespace {

Served servedAt(const std::string& line) {
  static const std::regex kAddress("(http://127\\.0\\.0\\.1:([0-9]+)(/[0-9a-f]{32}/))\n");
  std::smatch parts;
  if (!std::regex_match(line, parts, kAddress)) {
    throw std::runtime_error("no address: " + line);
  }
  return {parts[1], std::stoi(parts[2]), parts[3]};
}

} // namespace

Outcome whileServing(const std::function<void(const Served&)>& use, Invocation invocation) {
  bool wasUsed = false;
  invocation.holdInputUntil = [&](const Outcome& outcome) {
    if (outcome.output.empty()) {
      return false;
    }
    wasUsed = true;
    try {
      use(servedAt(outcome.output));
    } catch (const std::exception& problem) {
      ADD_FAILURE() << problem.what();
    }
    return true;
  };
  invocation.signal = SIGINT;
  Outcome outcome = runTool(invocation);
  EXPECT_TRUE(wasUsed) << outcome.errors;
  return outcome;
}

} // namespace cardwright::tool
