#pragma once

#include "cardwright/vcard_property.h"
#include "cardwright/vocabulary.h"

namespace cardwright {

// Written only behind the properties that they describe.
inline constexpr TextView kLabelKey = u"X-ABLABEL";
inline constexpr TextView kAddressFormatKey = u"X-ABADR";

/// Photos without a text are not written.
[[nodiscard]] inline bool isEmptyPhoto(const VCardProperty& property) noexcept {
  return property.name() == cVCardProperty_PHOTO &&
         property.textValue().value_or(TextView()).empty();
}

} // namespace cardwright
