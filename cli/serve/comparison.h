#pragma once

#include <cardwright/text.h>

namespace cardwright::tool {

/// A text around the place where it differs from another.
struct Excerpt {
  Text lead;
  Text changed;
  Text trail;
};

/// Two texts side by side. What is alike is cut down to a little around the difference, and a very
/// long difference to its beginning; "…" stands where something was cut.
struct Comparison {
  Excerpt before;
  Excerpt after;
};

[[nodiscard]] Comparison compared(TextView before, TextView after);

/// The beginning of a long text, with "…" where it was cut.
[[nodiscard]] Text beginningOf(TextView text, std::size_t mostUnits);

} // namespace cardwright::tool
