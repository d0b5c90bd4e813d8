#include "cardwright/face.h"
#include "face/reporting.h"
#include "reader/card_reader.h"

namespace cardwright {

VCardList readCards(std::string_view bytes, ReadReport* report, const ReadOptions& options) {
  ReadReport done;
  Text original = decodedBytes(bytes, options.encoding, done.decoding);
  SimpleLines simpleLines;
  Cleaning cleaning = options.clean ? clean(original, &simpleLines) : Cleaning();
  auto store = std::make_shared<detail::LineStore>();
  if (!cleaning.text) {
    store->text.swap(original);
  } else if (report != nullptr && cleaning.origins.empty()) {
    // Only both texts tell where a line was in the file.
    store->text = *cleaning.text;
  } else {
    store->text = std::move(*cleaning.text);
    if (report == nullptr) {
      original = Text();
    }
  }
  ReadRecorder recorder(report != nullptr ? &done : nullptr);
  VCardList cards = readAllCards(store, {&recorder, options.contactsParser}, simpleLines);
  if (report != nullptr) {
    const TextView source = cleaning.text ? TextView(original) : TextView(store->text);
    if (options.clean) {
      done.foreignLine = foreignLine(cleaning, source);
    }
    placeDroppedLines(cleaning, source, done.droppedLines);
    reportRepairs(cleaning, source, done.summaries, done.repairs);
    *report = std::move(done);
  }
  return cards;
}

} // namespace cardwright
