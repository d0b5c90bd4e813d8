#pragma once

#include <cardwright/text.h>
#include <cardwright/vcard_n_value.h>

namespace cardwright::tool {

/// A structured name as people write it: "Dr. Ada King Lovelace, Countess", and with the family
/// name first and without blanks where all of it is written in East Asian script. Empty when the
/// name is.
[[nodiscard]] Text personName(const VCardNValue& name);

/// Whether a text holds every word of the name, in whatever order. Names that are too long for a
/// person are not looked for.
[[nodiscard]] bool isSaidBy(const VCardNValue& name, TextView text);

} // namespace cardwright::tool
