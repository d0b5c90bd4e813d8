#pragma once

#include "cardwright/text.h"
#include "values/value_classes.h"
#include "writer/unchanged/units.h"

namespace cardwright {

/// What a value is read as.
struct ValueForm {
  TextView type; ///< name of the value type
  ValueClass valueClass = ValueClass::text;
  bool isList = false; ///< whether it is a list of such values
};

/// Appends a value that was read as it is written.
/// @param value begins behind blanks
/// @returns false where the value has to be known
[[nodiscard]] bool rewriteValue(Units& output, TextView value, const ValueForm& form,
                                VersionCode version);

} // namespace cardwright
