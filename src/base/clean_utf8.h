#pragma once

#include <string>
#include <string_view>

namespace cardwright {

/// The bytes without those that GNU libiconv finds illegal in UTF-8: a byte that begins no
/// character, or the first byte of a sequence that is none. Empty when the bytes end before a
/// sequence has as many as its first byte calls for.
[[nodiscard]] std::string cleanedUtf8(std::string_view bytes);

} // namespace cardwright
