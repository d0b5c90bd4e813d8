#pragma once

#include "base/name_table.h"
#include "cardwright/detail/text_storage.h"
#include "cardwright/text.h"

namespace cardwright {

/// The types of a property's value where no VALUE parameter states one.
struct DefaultTypes {
  TextView below4; ///< in the versions below 4
  TextView type;
};

/// A well-known name of a property or parameter.
using KnownName = NameRow<DefaultTypes>;

/// The row of exactly this upper-case name, or null.
[[nodiscard]] const KnownName* knownName(TextView name) noexcept;

/// Keeps a name: as a view of our own constant where it is a well-known one, else as a copy.
[[nodiscard]] detail::TextStorage nameStorage(TextView name);

} // namespace cardwright
