#pragma once

#include <array>
#include <string_view>

namespace cardwright::conformance {

/// A case that is known to be wrong, and why.
struct KnownException {
  std::string_view id;
  std::string_view reason;
};

/// Cases that are run but not counted as differing. Each needs a reason that stands by itself.
inline constexpr std::array<KnownException, 0> kKnownExceptions{};

/// The entry of a case, or null.
[[nodiscard]] constexpr const KnownException* knownException(std::string_view id) {
  for (const KnownException& exception : kKnownExceptions) {
    if (exception.id == id) {
      return &exception;
    }
  }
  return nullptr;
}

} // namespace cardwright::conformance
