#pragma once

#include "base/simple_lines.h"
#include "cardwright/vcard.h"
#include "model/line_store.h"
#include "reader/read_recorder.h"

#include <cstddef>
#include <memory>

namespace cardwright {

/// Who takes part in a reading call besides the reader.
struct ReadingParties {
  ReadRecorder* recorder;         ///< never null
  ContactsParser* contactsParser; ///< null where the host lends none
};

/// Reads the next card of a text that is not cleaned any more, and moves the location behind what
/// was consumed.
/// @returns null when there is no card
[[nodiscard]] std::shared_ptr<VCard> readCard(TextView text, std::size_t& location,
                                              ReadingParties parties);

/// Reads all cards of the store's text. They share the store; its lines are joined in place, and
/// only the number of its line breaks stays as it was.
/// @param simpleLines what is known of the text's lines already
[[nodiscard]] VCardList readAllCards(const std::shared_ptr<detail::LineStore>& store,
                                     ReadingParties parties, const SimpleLines& simpleLines = {});

/// Tells the recorder what readAllCards would, and makes no cards.
/// @param text is changed likewise
void countAllCards(Text& text, ReadRecorder& recorder, const SimpleLines& simpleLines = {});

} // namespace cardwright
