#pragma once

#include <cardwright/text.h>
#include <cardwright/vcard_property.h>

#include <optional>

namespace cardwright::tool {

/// "12 KB JPEG" for a text that carries a picture, a sound or other data inline, as base64 or as
/// "data:" URI. Absent for a text that people can read.
[[nodiscard]] std::optional<Text> inlineDataText(const VCardProperty& property, TextView text);

} // namespace cardwright::tool
