#include "cardwright/utf8.h"
#include "cardwright/vcard.h"
#include "cleaner/cleaning.h"
#include "reader/card_reader.h"

namespace cardwright {

std::optional<VCardList> VCard::vCardsFromString(std::optional<TextView> text,
                                                 TextList* cleaningSummaries,
                                                 ContactsParser* contactsParser) {
  if (!text) {
    return std::nullopt;
  }
  SimpleLines simpleLines;
  Cleaning cleaning = clean(*text, &simpleLines);
  if (cleaningSummaries != nullptr && cleaning.text) {
    *cleaningSummaries = std::move(cleaning.summaries);
  }
  ReadRecorder recorder(nullptr);
  auto store = std::make_shared<detail::LineStore>();
  store->text = cleaning.text ? std::move(*cleaning.text) : Text(*text);
  return readAllCards(store, {&recorder, contactsParser}, simpleLines);
}

VCardList VCard::vCardsFromString(std::string_view utf8, TextList* cleaningSummaries,
                                  ContactsParser* contactsParser) {
  return vCardsFromString(TextView(textFromUtf8(utf8)), cleaningSummaries, contactsParser)
      .value_or(VCardList());
}

std::shared_ptr<VCard> VCard::firstvCardFromString(std::optional<TextView> text,
                                                   TextList* cleaningSummaries,
                                                   ContactsParser* contactsParser) {
  const std::optional<VCardList> cards = vCardsFromString(text, cleaningSummaries, contactsParser);
  return cards && !cards->empty() ? cards->front() : nullptr;
}

std::shared_ptr<VCard> VCard::firstvCardFromString(std::string_view utf8,
                                                   TextList* cleaningSummaries,
                                                   ContactsParser* contactsParser) {
  return firstvCardFromString(TextView(textFromUtf8(utf8)), cleaningSummaries, contactsParser);
}

} // namespace cardwright
