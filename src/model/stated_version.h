#pragma once

#include "cardwright/text.h"

#include <cstdint>

namespace cardwright {

/// The version that the text of a VERSION property states: its leading number without a fraction,
/// 0 without one, and for a number below zero or beyond 64 bits.
[[nodiscard]] std::uint64_t versionStatedBy(TextView text);

/// The version that a content line states which is nothing but a name and one of the versions that
/// there are, as nearly all are; 0 for any other line.
[[nodiscard]] constexpr VersionCode versionOfPlainLine(TextView line) noexcept {
  return line == u"VERSION:3.0" ? 3 : line == u"VERSION:4.0" ? 4 : line == u"VERSION:2.1" ? 2 : 0;
}

} // namespace cardwright
