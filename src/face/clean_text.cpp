#include "base/line_counter.h"
#include "cardwright/face.h"
#include "cardwright/utf8.h"
#include "cleaner/envelope.h"
#include "face/reporting.h"

namespace cardwright {

namespace {

std::optional<ForeignLine> foreignLine(TextView text) {
  const std::optional<TextRange> line = findForeignLine(text);
  if (!line) {
    return std::nullopt;
  }
  return ForeignLine{{line->location, LineCounter(text).lineAt(line->location)},
                     utf8FromText(text.substr(line->location, line->length))};
}

} // namespace

std::optional<std::string> cleanText(std::string_view bytes, CleanReport* report,
                                     std::optional<std::string_view> encoding) {
  CleanReport done;
  const Text text = decodedBytes(bytes, encoding, done.decoding);
  Cleaning cleaning = clean(text);
  std::optional<std::string> cleaned;
  if (cleaning.text) {
    cleaned = utf8FromText(*cleaning.text);
  } else if (done.decoding.droppedBytes != 0) {
    cleaned = utf8FromText(text);
  }
  if (report != nullptr) {
    if (!cleaning.isEnvelope) {
      done.foreignLine = foreignLine(text);
    }
    reportRepairs(cleaning, text, done.summaries, done.repairs);
    *report = std::move(done);
  }
  return cleaned;
}

} // namespace cardwright
