#pragma once

#include "cardwright/vcard_value.h"

#include <optional>

namespace cardwright {

/// The type that VALUE has to state so that a value of the same kind is read again.
/// @param propertyKey name of the property in upper case
/// @param stated what VALUE states so far
/// @returns absent when nothing has to be stated, or nothing would help
[[nodiscard]] std::optional<TextView> typeToState(const VCardValue& value, TextView propertyKey,
                                                  VersionCode version,
                                                  std::optional<TextView> stated);

/// How readers take the value of a property apart.
struct Parting {
  bool atSemicolons = false; ///< those that are not escaped
  bool trimsParts = false;   ///< blanks around a part are no part of it
};

/// @param stated what VALUE states
[[nodiscard]] Parting partingOf(TextView propertyKey, VersionCode version,
                                std::optional<TextView> stated);

} // namespace cardwright
