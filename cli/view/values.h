#pragma once

#include "view/card_names.h"

#include <cardwright/text.h>
#include <cardwright/vcard_property.h>

namespace cardwright::tool {

/// A value as people write it.
struct ValueText {
  Text text;          ///< with line ends where it has several lines
  bool wraps = false; ///< whether it is prose, which may be broken anywhere between words
};

[[nodiscard]] ValueText valueText(const VCardProperty& property, CardNames& names);

} // namespace cardwright::tool
