#include "cardwright/face.h"
#include "face/reporting.h"
#include "reader/card_reader.h"

namespace cardwright {

VCardList readCards(std::string_view bytes, ReadReport* report, const ReadOptions& options) {
  ReadReport done;
  const Text text = decodedBytes(bytes, options.encoding, done.decoding);
  Cleaning cleaning = options.clean ? clean(text) : Cleaning();
  ReadRecorder recorder(report != nullptr ? &done : nullptr);
  VCardList cards = readAllCards(cleaning.text ? TextView(*cleaning.text) : TextView(text),
                                 {&recorder, options.contactsParser});
  if (report != nullptr) {
    placeDroppedLines(cleaning, text, done.droppedLines);
    reportRepairs(cleaning, text, done.summaries, done.repairs);
    *report = std::move(done);
  }
  return cards;
}

} // namespace cardwright
