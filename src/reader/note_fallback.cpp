#include "cardwright/contacts_parser.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vocabulary.h"

#include <algorithm>

namespace cardwright {

ContactsParser::~ContactsParser() = default;

void VCard::updateVCardUsingCNContactSerializer(const std::shared_ptr<VCard>& card,
                                                std::optional<TextView> rawVCard,
                                                ContactsParser* contactsParser) {
  if (card == nullptr || card->version() != 2 || !rawVCard || rawVCard->empty() ||
      contactsParser == nullptr) {
    return;
  }
  const std::shared_ptr<VCardPropertyList> notes = card->propertiesWithName(cVCardProperty_NOTE);
  const auto hasText = [](const std::shared_ptr<VCardProperty>& note) {
    return !note->textValue().value_or(TextView()).empty();
  };
  if (notes != nullptr && std::any_of(notes->begin(), notes->end(), hasText)) {
    return;
  }
  const std::optional<std::vector<ContactRecord>> contacts =
      contactsParser->contactsWithData(utf8FromText(*rawVCard));
  if (!contacts || contacts->empty()) {
    return;
  }
  const std::optional<Text>& note = contacts->front().note;
  if (!note || note->empty()) {
    return;
  }
  if (notes != nullptr && !notes->empty()) {
    notes->front()->setValue(VCardTextValue::valueWithText(*note));
  } else {
    card->addProperty(VCardProperty::propertyWithName(cVCardProperty_NOTE, TextView(*note)));
  }
}

} // namespace cardwright
