#pragma once

#include "base/name_table.h"
#include "base/short_word.h"
#include "cardwright/text.h"
#include "values/value_classes.h"

#include <cstdint>

namespace cardwright {

/// What a well-known name means for how its line is written.
struct WrittenName {
  std::uint64_t propertyOrder;  ///< as of orderOf
  std::uint64_t parameterOrder; ///< the same as the name of a parameter
  TextView typeBelow4;          ///< the default value type in the versions below 4
  TextView type;
  ValueClass classBelow4; ///< that these select
  ValueClass valueClass;
  bool isList;      ///< whether the value is a list of values
  bool isCompanion; ///< whether it is written behind the properties that it describes
};

/// The row of a name without regard to the case of ASCII letters, or null.
/// @param word the name, or its beginning
[[nodiscard]] const NameRow<WrittenName>* writtenName(ShortWord word, TextView name) noexcept;

} // namespace cardwright
