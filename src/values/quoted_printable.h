#pragma once

#include "cardwright/text.h"

#include <optional>
#include <string>

namespace cardwright {

/// The bytes that a quoted-printable text stands for, up to the first zero byte among them; absent
/// when the text is not ASCII.
[[nodiscard]] std::optional<std::string> quotedPrintableBytes(TextView text);

} // namespace cardwright
