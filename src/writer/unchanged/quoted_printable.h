#pragma once

#include "cardwright/text.h"
#include "writer/unchanged/bytes.h"

namespace cardwright {

/// Appends a value in quoted-printable of UTF-8 as it would be spelled without: decoded, with a
/// backslash before each decoded sign that has a meaning. Never longer than the value.
/// @returns false where the value is not of the plain form, which only decoding can tell about
[[nodiscard]] bool appendWithoutQuotedPrintable(Bytes& output, TextView value) noexcept;

} // namespace cardwright
