#include "cli/process.h"
#include "support/address_book.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace cardwright::tool {
namespace {

TEST(Memory, isAFewTimesTheFileForCommandsThatMustBearLargeOnes) {
  constexpr std::size_t kMostTimes = 7; // 16 times where cards were kept
  AddressBookOptions options;
  options.cards = 25'000;
  const std::string book = addressBook(options);
  const TemporaryFolder folder;
  const std::string file = folder.write("in.vcf", book);
  const std::string written = folder.path() + "/out.vcf";
  for (std::vector<std::string> command : {std::vector<std::string>{"clean"},
                                           {"convert", "--to", "4.0"},
                                           {"write", "--to", "3.0"},
                                           {"join"},
                                           {"count"},
                                           {"json"}}) {
    const std::string name = command.front();
    if (name != "count" && name != "json") {
      command.insert(command.end(), {"-o", written});
    }
    command.push_back(file);
    Invocation invocation{command, ""};
    invocation.outputFile = "/dev/null";
    const Outcome outcome = runTool(invocation);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_GT(outcome.peakBytes, book.size()) << name;
    EXPECT_LT(outcome.peakBytes, kMostTimes * book.size()) << name;
  }
}

} // namespace
} // namespace cardwright::tool
