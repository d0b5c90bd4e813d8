#include "cardwright/face.h"
#include "cardwright/utf8.h"
#include "reader/card_reader.h"

namespace cardwright {

VCardList readCards(std::string_view utf8, ReadReport* report) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (utf8.starts_with(kByteOrderMark)) {
    utf8.remove_prefix(kByteOrderMark.size());
  }
  if (report != nullptr) {
    *report = {};
  }
  const Text text = textFromUtf8(utf8);
  ReadRecorder recorder(report);
  VCardList cards = readAllCards(text, {&recorder, nullptr});
  recorder.finish(text);
  return cards;
}

} // namespace cardwright
