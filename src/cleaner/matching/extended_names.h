#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <optional>

namespace cardwright {

// What the short patterns match. Each function takes one or two looks at the text.

/// Start of the "X-" or "VND-" whose hyphen stands at `hyphen`, or npos.
[[nodiscard]] std::size_t startOfExtensionPrefix(TextView text, std::size_t hyphen) noexcept;

/// Start of the numbered configuration name, as in "VND-63-SENSITIVE-CONTENT-CONFIG", that ends at
/// `end`, or npos.
[[nodiscard]] std::size_t startOfNumberedConfigName(TextView text, std::size_t end) noexcept;

/// Length of the numbered configuration name that the whole text is, but for one line end; 0 when
/// it is none.
[[nodiscard]] std::size_t numberedConfigNameLength(TextView text) noexcept;

/// Length of the group label and its dot at the start of the text; 0 without one.
[[nodiscard]] std::size_t groupPrefixLength(TextView text) noexcept;

/// The extended name at the end of the text, before one line end at most.
[[nodiscard]] std::optional<TextRange> findDanglingFragment(TextView text) noexcept;

/// The extended name at the end of the text with its parameters and trailing white space, but
/// without a colon.
[[nodiscard]] std::optional<TextRange> findTrailingHeaderFragment(TextView text) noexcept;

/// The leftmost group label of the form "item1" with up to four digits, and the dot behind it.
[[nodiscard]] std::optional<TextRange> findItemLabel(TextView text) noexcept;

/// Whether the text, but for one line end, has the form of a URI scheme.
[[nodiscard]] bool isUriScheme(TextView text) noexcept;

} // namespace cardwright
