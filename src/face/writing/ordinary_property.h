#pragma once

#include "face/writing/safe_property.h"

namespace cardwright {

/// Whether a property is so ordinary that VCardProperty::generate writes it as safeLine would, and
/// nothing is to be told of it. Most are.
[[nodiscard]] bool isOrdinary(const VCardProperty& property, const WritingContext& context);

/// Whether a name or group consists of ASCII letters, digits and hyphens.
[[nodiscard]] bool isPlainName(TextView name) noexcept;

} // namespace cardwright
