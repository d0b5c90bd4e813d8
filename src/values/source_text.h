#pragma once

#include "cardwright/text.h"
#include "cardwright/vcard_value.h"

#include <optional>

namespace cardwright {

/// The text that a date, an offset or a position was read from. It is kept where it is not of the
/// ordinary forms that are written again as they were meant, and forgotten when the value is set.
struct SourceText {
  [[nodiscard]] static std::optional<TextView> of(const VCardValue& value) noexcept;
};

/// Whether the text is a date that is no other when it is written: YYYY-MM-DD or YYYYMMDD.
[[nodiscard]] bool isOrdinaryDate(TextView text) noexcept;
/// Whether the text is such a date, "T", hh:mm:ss or hhmmss, and a zone or none.
[[nodiscard]] bool isOrdinaryDateTime(TextView text) noexcept;
/// Whether the text is ±hh:mm or ±hhmm.
[[nodiscard]] bool isOrdinaryOffset(TextView text) noexcept;
/// Whether the text is two numbers of no more digits than are written.
[[nodiscard]] bool isOrdinaryPosition(TextView text) noexcept;

} // namespace cardwright
