#pragma once

#include "cardwright/date_formatter.h"
#include "cardwright/vcard_object.h"

namespace cardwright::conformance {

/// A formatter as the reader makes it.
[[nodiscard]] inline DateFormatter newFormatter() {
  return DateFormatter("en_US_POSIX");
}

/// What an object writes.
[[nodiscard]] inline Text generatedText(const VCardObject& object, VersionCode version) {
  DateFormatter formatter = newFormatter();
  Text output;
  object.generate(output, version, &formatter);
  return output;
}

} // namespace cardwright::conformance
