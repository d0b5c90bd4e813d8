#pragma once

#include <stdexcept>

namespace cardwright::conformance {

/// What is wrong with a case itself, such as an argument of another kind than its operation takes.
class CaseError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

} // namespace cardwright::conformance
