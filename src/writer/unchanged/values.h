#pragma once

#include "base/scan_lanes.h"
#include "cardwright/text.h"
#include "values/value_classes.h"
#include "writer/unchanged/units.h"

namespace cardwright {

/// What a value is read as.
struct ValueForm {
  ValueClass valueClass = ValueClass::text;
  bool isList = false;            ///< whether it is a list of such values
  bool isQuotedPrintable = false; ///< of UTF-8
  bool isPhoto = false;           ///< whether it is that of a PHOTO
  bool mayBeDate = false;         ///< of a date: whether its type has days without a time
  bool mayBeInstant = false;      ///< likewise, days with a time
};

/// Appends a value that was read as it is written.
/// @param value begins behind blanks, and is decoded
/// @returns false where the value has to be known
[[nodiscard]] bool rewriteValue(Units& output, const ReadableText& value, const ValueForm& form,
                                VersionCode version);

} // namespace cardwright
