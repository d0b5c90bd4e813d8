#pragma once

#include <cardwright/text.h>

namespace cardwright::tool {

/// A position on the globe in degrees, "48.2082° N, 16.3738° E".
[[nodiscard]] Text positionText(double latitude, double longitude);

/// The same for a "geo:" URI (RFC 5870); a text that is none is left as it is.
[[nodiscard]] Text positionText(TextView uri);

} // namespace cardwright::tool
