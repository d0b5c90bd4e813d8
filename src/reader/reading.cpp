#include "cardwright/utf8.h"
#include "cardwright/vcard.h"
#include "reader/card_reader.h"

namespace cardwright {

std::optional<VCardList> VCard::vCardsFromString(std::optional<TextView> text,
                                                 TextList* /*cleaningSummaries*/) {
  if (!text) {
    return std::nullopt;
  }
  ReadRecorder recorder(nullptr);
  return readAllCards(*text, recorder);
}

VCardList VCard::vCardsFromString(std::string_view utf8, TextList* cleaningSummaries) {
  return vCardsFromString(TextView(textFromUtf8(utf8)), cleaningSummaries).value_or(VCardList());
}

std::shared_ptr<VCard> VCard::firstvCardFromString(std::optional<TextView> text,
                                                   TextList* cleaningSummaries) {
  const std::optional<VCardList> cards = vCardsFromString(text, cleaningSummaries);
  return cards && !cards->empty() ? cards->front() : nullptr;
}

std::shared_ptr<VCard> VCard::firstvCardFromString(std::string_view utf8,
                                                   TextList* cleaningSummaries) {
  return firstvCardFromString(TextView(textFromUtf8(utf8)), cleaningSummaries);
}

} // namespace cardwright
