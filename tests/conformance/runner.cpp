#include "conformance/runner.h"

#include "conformance/case_error.h"
#include "conformance/comparison.h"
#include "conformance/known_exceptions.h"
#include "conformance/shortened.h"

#include <algorithm>
#include <exception>
#include <iomanip>
#include <ostream>

namespace cardwright::conformance {
namespace {

constexpr std::size_t kShownLength = 400;

[[nodiscard]] Json resultOf(const Operation& operation, const Case& testCase) {
  try {
    return operation(Arguments(testCase.arguments));
  } catch (const CaseError& error) {
    return objectToJson("broken case", asciiToJson(error.what()));
  } catch (const std::exception& error) {
    return objectToJson("raises", asciiToJson(error.what()));
  }
}

void printRow(std::ostream& output, std::string_view name, const Tally& tally) {
  output << std::setw(9) << tally.agreed << std::setw(11) << tally.differing << std::setw(11)
         << tally.notBuilt << "  " << name;
  if (tally.excepted != 0) {
    output << " (" << tally.excepted << " excepted)";
  }
  output << '\n';
}

} // namespace

Tally& Tally::operator+=(const Tally& other) {
  agreed += other.agreed;
  differing += other.differing;
  notBuilt += other.notBuilt;
  excepted += other.excepted;
  return *this;
}

Runner::Runner(const OperationTable& operations, std::vector<std::string> only,
               std::size_t differences, std::ostream& output)
    : m_operations(operations),
      m_only(std::move(only)),
      m_differences(differences),
      m_output(output) {}

bool Runner::isWanted(const std::string& operation) const {
  return m_only.empty() || std::any_of(m_only.begin(), m_only.end(), [&](const std::string& name) {
           return operation.starts_with(name);
         });
}

void Runner::run(const Case& testCase) {
  if (!isWanted(testCase.operation)) {
    return;
  }
  Tally& tally = m_tallies[testCase.operation];
  const Operation* operation = m_operations.find(testCase.operation);
  if (operation == nullptr) {
    ++tally.notBuilt;
    return;
  }
  const Json got = resultOf(*operation, testCase);
  if (!firstDifference(testCase.expected, got)) {
    ++tally.agreed;
  } else if (knownException(testCase.id) != nullptr) {
    ++tally.excepted;
  } else {
    ++tally.differing;
    if (tally.differing <= m_differences) {
      printDifference(testCase, got);
    }
  }
}

void Runner::printDifference(const Case& testCase, const Json& got) {
  const auto difference = firstDifference(testCase.expected, got);
  const std::size_t place = firstMismatch(difference->expected, difference->got);
  m_output << testCase.id << "  " << testCase.operation << "\n  arguments  "
           << shortened(textOfJson(testCase.arguments), 0, kShownLength) << '\n';
  if (!difference->path.empty()) {
    m_output << "  at         " << difference->path << '\n';
  }
  m_output << "  expected   " << shortened(difference->expected, place, kShownLength)
           << "\n  got        " << shortened(difference->got, place, kShownLength) << "\n\n";
}

Tally Runner::total() const {
  Tally total;
  for (const auto& [name, tally] : m_tallies) {
    total += tally;
  }
  return total;
}

void Runner::printSummary() const {
  m_output << "   agreed  differing  not built  operation\n";
  for (const auto& [name, tally] : m_tallies) {
    printRow(m_output, name, tally);
  }
  printRow(m_output, "all " + std::to_string(m_tallies.size()) + " operations", total());
}

} // namespace cardwright::conformance
