#include "cardwright/face.h"
#include "cardwright/utf8.h"
#include "face/reporting.h"
#include "reader/card_reader.h"

#include <utility>

namespace cardwright {

namespace {

/// @param text what was cleaned; it or the cleaned text is of no more use afterwards
ReadReport reportOfReading(Text& text, Cleaning& cleaning, const SimpleLines& simpleLines,
                           const CleanReport& cleaned) {
  ReadReport report;
  report.decoding = cleaned.decoding;
  report.foreignLine = cleaned.foreignLine;
  report.summaries = cleaned.summaries;
  report.repairs = cleaned.repairs;
  ReadRecorder recorder(&report);
  if (cleaning.text) {
    // Without origins, only the text tells where its lines come from.
    Text result = cleaning.origins.empty() ? *cleaning.text : std::move(*cleaning.text);
    countAllCards(result, recorder, simpleLines);
  } else {
    countAllCards(text, recorder, simpleLines);
  }
  placeDroppedLines(cleaning, text, report.droppedLines);
  return report;
}

} // namespace

std::optional<std::string> cleanText(std::string_view bytes, CleanReport* report,
                                     std::optional<std::string_view> encoding,
                                     ReadReport* reading) {
  CleanReport done;
  Text text = decodedBytes(bytes, encoding, done.decoding);
  SimpleLines simpleLines;
  Cleaning cleaning = clean(text, reading != nullptr ? &simpleLines : nullptr);
  std::optional<std::string> cleaned;
  if (cleaning.text) {
    cleaned = utf8FromText(*cleaning.text);
  } else if (done.decoding.droppedBytes != 0) {
    cleaned = utf8FromText(text);
  }
  if (report != nullptr || reading != nullptr) {
    done.foreignLine = foreignLine(cleaning, text);
    reportRepairs(cleaning, text, done.summaries, done.repairs);
  }
  if (reading != nullptr) {
    *reading = reportOfReading(text, cleaning, simpleLines, done);
  }
  if (report != nullptr) {
    *report = std::move(done);
  }
  return cleaned;
}

} // namespace cardwright
