#pragma once

#include "cardwright/text.h"

#include <string>
#include <string_view>

namespace cardwright::conformance {

// How case files write texts and bytes in ASCII: printable characters but "%" stand for
// themselves, any other UTF-16 unit is "%uXXXX", so that lone surrogates survive; bytes are
// hexadecimal digits.

[[nodiscard]] std::string notationFromText(TextView text);
/// @throws CaseError for anything else than the notation
[[nodiscard]] Text textFromNotation(std::string_view notation);

[[nodiscard]] std::string hexFromBytes(std::string_view bytes);
/// @throws CaseError for anything else than pairs of digits
[[nodiscard]] std::string bytesFromHex(std::string_view hex);

} // namespace cardwright::conformance
