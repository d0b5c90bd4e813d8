#pragma once

#include <cardwright/text.h>
#include <cardwright/vcard_address_value.h>

namespace cardwright::tool {

/// A postal address in lines, as it stands on a letter: the street first and the country last, and
/// the other way round where street and town are written in East Asian script.
[[nodiscard]] Text addressText(const VCardAddressValue& address);

} // namespace cardwright::tool
