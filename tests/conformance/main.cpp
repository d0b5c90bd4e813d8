// Runs cases of the form {"id", "op", "args", "expect"} against the library.

#include "conformance/case_file.h"
#include "conformance/crash_note.h"
#include "conformance/operation_table.h"
#include "conformance/options.h"
#include "conformance/runner.h"

#include <chrono>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <span>
#include <stdexcept>

namespace cardwright::conformance {
namespace {

enum ExitStatus : int { kAgreed = 0, kDiffering = 1, kUnusable = 2 };

constexpr const char* kFolderVariable = "CARDWRIGHT_CONFORMANCE";
constexpr const char* kUsage =
    "usage: conformance [FOLDER] [--only OP]... [--differences N]\n"
    "\n"
    "Runs the cases of the *.jsonl files in FOLDER, or else in the folder that the variable\n"
    "CARDWRIGHT_CONFORMANCE names.\n"
    "  --only OP         only operations whose name is or begins with OP\n"
    "  --differences N   print so many differences of each operation (3)\n";

[[nodiscard]] std::optional<std::string> folderFromEnvironment() {
  const char* folder = std::getenv(kFolderVariable);
  if (folder == nullptr || *folder == '\0') {
    return std::nullopt;
  }
  return folder;
}

[[nodiscard]] int runFolder(const std::string& folder, const Options& options,
                            const OperationTable& operations) {
  const auto start = std::chrono::steady_clock::now();
  installCrashNote();
  Runner runner(operations, options.only, options.differences, std::cout);
  forEachCase(folder, [&](const Case& testCase) {
    setRunningCase(testCase.id, testCase.operation);
    runner.run(testCase);
  });
  if (runner.tallies().empty()) {
    throw std::runtime_error(folder + ": no case of these operations");
  }
  runner.printSummary();
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  std::cout << seconds.count() << " seconds\n";
  return runner.total().differing == 0 ? kAgreed : kDiffering;
}

[[nodiscard]] int run(std::span<const char* const> arguments) {
  const std::optional<Options> options = optionsFromArguments(arguments);
  if (!options) {
    std::cerr << kUsage;
    return kUnusable;
  }
  const OperationTable operations = builtOperations();
  const std::optional<std::string> folder =
      options->folder ? options->folder : folderFromEnvironment();
  if (!folder) {
    std::cout << kFolderVariable << " is not set: the cases of " << operations.size()
              << " operations are skipped\n";
    return kAgreed;
  }
  return runFolder(*folder, *options, operations);
}

} // namespace
} // namespace cardwright::conformance

int main(int argc, char** argv) {
  try {
    return cardwright::conformance::run(
        std::span<const char* const>(argv, static_cast<std::size_t>(argc)).subspan(1));
  } catch (const std::exception& error) {
    std::cerr << "conformance: " << error.what() << '\n';
    return cardwright::conformance::kUnusable;
  }
}
