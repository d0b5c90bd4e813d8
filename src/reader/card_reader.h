#pragma once

#include "cardwright/vcard.h"
#include "reader/read_recorder.h"

#include <cstddef>
#include <memory>

namespace cardwright {

/// Reads the next card of a text that is not cleaned any more, and moves the location behind what
/// was consumed.
/// @returns null when there is no card
[[nodiscard]] std::shared_ptr<VCard> readCard(TextView text, std::size_t& location,
                                              ReadRecorder& recorder);

/// Reads all cards of such a text.
[[nodiscard]] VCardList readAllCards(TextView text, ReadRecorder& recorder);

} // namespace cardwright
