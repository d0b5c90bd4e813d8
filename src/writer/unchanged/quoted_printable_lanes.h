#pragma once

#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

/// How far a decoding call came.
struct QuotedPrintableRun {
  std::size_t units; ///< how many were read
  std::size_t bytes; ///< how many were written
};

/// Decodes quoted-printable UTF-8 up to the first character that is not written as it is decoded,
/// or about there. Only where usesWideLanes says so; elsewhere it stops at once.
/// @param output has room for as many bytes as there are units, and 64 more
[[nodiscard]] QuotedPrintableRun decodeByWideLanes(TextView value, char* output) noexcept;

} // namespace cardwright
