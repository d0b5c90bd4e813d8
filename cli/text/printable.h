#pragma once

#include <cardwright/text.h>

#include <vector>

namespace cardwright::tool {

/// The text with everything made visible that could steer a terminal or hide what is there:
/// control characters as their pictures ("␛"), others as their number ("<U+202E>"). Line ends are
/// control characters, too: see linesOf.
[[nodiscard]] Text printable(TextView text);

/// Lines of a text: CR LF, CR, LF and the Unicode line ends each end one. A line end at the very
/// end of the text does not begin another line; an empty text has one line.
[[nodiscard]] std::vector<TextView> linesOf(TextView text);

} // namespace cardwright::tool
