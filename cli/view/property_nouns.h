#pragma once

#include <cardwright/text.h>

namespace cardwright::tool {

/// What a property is called and where it stands.
struct PropertyNoun {
  TextView noun;
  int rank = 0;               ///< the smaller, the higher up
  bool isBookkeeping = false; ///< of interest to programs rather than to people
};

/// How a property of an upper-cased name is shown. Properties that nobody knows keep their name.
[[nodiscard]] PropertyNoun propertyNoun(TextView upperCasedName) noexcept;

} // namespace cardwright::tool
