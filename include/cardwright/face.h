#pragma once

#include "cardwright/read_report.h"
#include "cardwright/vcard.h"

#include <string_view>

namespace cardwright {

/// Reads all cards of a UTF-8 text, however damaged. A byte-order mark at its start is not part of
/// the text; bytes that are no UTF-8 become U+FFFD.
/// @param report receives what was read and what was dropped; nothing of the result depends on it
/// @returns the cards in text order, none for a text without any
[[nodiscard]] [[gnu::visibility("default")]] VCardList readCards(std::string_view utf8,
                                                                 ReadReport* report = nullptr);

} // namespace cardwright
