#include "conformance/operation_table.h"

#include <stdexcept>
#include <vector>

namespace cardwright::conformance {
namespace {

[[nodiscard]] std::vector<void (*)(OperationTable&)>& families() {
  static std::vector<void (*)(OperationTable&)> families;
  return families;
}

} // namespace

void OperationTable::add(std::string_view name, Operation operation) {
  if (!m_operations.emplace(name, std::move(operation)).second) {
    throw std::logic_error("two operations of one name: " + std::string(name));
  }
}

const Operation* OperationTable::find(std::string_view name) const {
  const auto found = m_operations.find(name);
  return found == m_operations.end() ? nullptr : &found->second;
}

OperationFamily::OperationFamily(void (*addTo)(OperationTable&)) {
  families().push_back(addTo);
}

OperationTable builtOperations() {
  OperationTable table;
  for (const auto& addTo : families()) {
    addTo(table);
  }
  return table;
}

} // namespace cardwright::conformance
