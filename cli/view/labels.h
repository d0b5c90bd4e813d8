#pragma once

#include "text/word_list.h"

#include <cardwright/text.h>
#include <cardwright/vcard_property.h>

#include <optional>

namespace cardwright::tool {

/// The text of an X-ABLabel in plain words: "_$!<HomePage>!$_" is "Home Page". Labels that people
/// made up are left as they are.
[[nodiscard]] Text labelText(TextView label);

/// What the TYPE parameter and its relatives say about a property.
struct TypeWords {
  std::optional<TextView> noun; ///< a better word than the property's own: "Mobile" for "Phone"
  WordList words;               ///< in the order in which they came
  bool isPreferred = false;
};

[[nodiscard]] TypeWords typeWords(const VCardProperty& property);

} // namespace cardwright::tool
