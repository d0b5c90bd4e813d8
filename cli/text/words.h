#pragma once

#include <cardwright/text.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace cardwright::tool {

// Small things about words. The words of vCards are ASCII.

[[nodiscard]] bool equalsIgnoringCase(TextView text, TextView other) noexcept;
[[nodiscard]] bool startsWithIgnoringCase(TextView text, TextView prefix) noexcept;
/// ASCII letters only.
[[nodiscard]] Text lowerCased(TextView text);
/// Without blanks, tabs and line ends at both ends.
[[nodiscard]] TextView trimmed(TextView text) noexcept;

/// The text, cut where it is longer than what is meant to be read at a glance. What is repeated
/// again and again has to be short.
[[nodiscard]] Text shortened(TextView text);
/// One after the other.
[[nodiscard]] Text concat(std::initializer_list<TextView> pieces);
/// Appends a piece that is not empty, after the separator when something stands there already.
void appendJoined(Text& text, TextView separator, TextView piece);
/// The texts that are not empty, joined.
[[nodiscard]] Text joined(const TextList& texts, TextView separator);

/// A decimal number.
[[nodiscard]] Text numberText(std::int64_t number);
/// The same with zeros in front, up to a number of digits.
[[nodiscard]] Text paddedNumber(std::int64_t number, std::size_t digits);

} // namespace cardwright::tool
