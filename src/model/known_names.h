#pragma once

#include "cardwright/detail/text_storage.h"
#include "cardwright/text.h"

namespace cardwright {

/// Keeps a name: as a view of our own constant where it is a well-known one, else as a copy.
[[nodiscard]] detail::TextStorage nameStorage(TextView name);

} // namespace cardwright
