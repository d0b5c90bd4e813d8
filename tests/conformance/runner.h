#pragma once

#include "conformance/case_file.h"
#include "conformance/operation_table.h"

#include <cstddef>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace cardwright::conformance {

/// How the cases of one operation went.
struct Tally {
  std::size_t agreed = 0;
  std::size_t differing = 0;
  std::size_t notBuilt = 0;
  std::size_t excepted = 0; ///< listed in kKnownExceptions

  Tally& operator+=(const Tally& other);
};

/// Runs cases, prints the first differences of each operation and counts.
class Runner {
 public:
  /// @param only         operations to be run, by name or the beginning of it; empty for all
  /// @param differences  how many are printed for each operation
  Runner(const OperationTable& operations, std::vector<std::string> only, std::size_t differences,
         std::ostream& output);

  void run(const Case& testCase);
  /// Prints what was counted.
  void printSummary() const;

  [[nodiscard]] const std::map<std::string, Tally>& tallies() const noexcept { return m_tallies; }
  [[nodiscard]] Tally total() const;

 private:
  [[nodiscard]] bool isWanted(const std::string& operation) const;
  void printDifference(const Case& testCase, const Json& got);

  const OperationTable& m_operations;
  std::vector<std::string> m_only;
  std::size_t m_differences;
  std::ostream& m_output;
  std::map<std::string, Tally> m_tallies;
};

} // namespace cardwright::conformance
