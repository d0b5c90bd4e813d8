#pragma once

#include "cardwright/text.h"

#include <optional>

namespace cardwright {

/// Whether a line begins with BEGIN:VCARD, or END:VCARD, in any case.
[[nodiscard]] bool isCardBegin(TextView line);
[[nodiscard]] bool isCardEnd(TextView line);

/// Whether a text is nothing but cards: from BEGIN:VCARD to END:VCARD, with only white space and
/// invisible marks around them.
[[nodiscard]] bool isEnvelopeOfCards(TextView text);

/// The first line that keeps a text with cards from being one: before the first card, or else
/// behind the last. Absent when there is no such line.
[[nodiscard]] std::optional<TextRange> findForeignLine(TextView text);

} // namespace cardwright
