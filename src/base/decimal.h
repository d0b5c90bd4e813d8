#pragma once

#include "cardwright/text.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace cardwright {

/// Appends a number in decimal digits, with zeros in front up to `minDigits`, 20 at most.
inline void appendDecimal(Text& output, std::uint64_t number, std::size_t minDigits) {
  std::array<char16_t, 20> digits; // NOLINT: filled from the end as far as it is appended
  std::size_t first = digits.size();
  do {
    digits[--first] = static_cast<char16_t>(u'0' + number % 10);
    number /= 10;
  } while (number != 0 || digits.size() - first < minDigits);
  output.append(digits.data() + first, digits.size() - first);
}

} // namespace cardwright
