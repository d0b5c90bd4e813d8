#include "cardwright/face.h"
#include "cardwright/utf8.h"
#include "face/reporting.h"

namespace cardwright {

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
    done.foreignLine = foreignLine(cleaning, text);
    reportRepairs(cleaning, text, done.summaries, done.repairs);
    *report = std::move(done);
  }
  return cleaned;
}

} // namespace cardwright
