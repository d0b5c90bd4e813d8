// Cards: what they hold, how they are read, and the repairs of the reader.

#include "cardwright/text_scanner.h"
#include "cardwright/vcard.h"
#include "conformance/dumps/model_dump.h"
#include "conformance/operation_table.h"

namespace cardwright::conformance {
namespace {

using CardPointer = std::shared_ptr<VCard>;

// What a card holds

Json cardOfProperties(const CardPointer& card) {
  return cardToJson(card);
}

Json propertiesWithName(const Arguments& arguments) {
  arguments.expectCount(2, 3);
  const CardPointer card = arguments.get<VCard>(0);
  const Text name = arguments.get<Text>(1);
  if (arguments.count() == 2) {
    const std::shared_ptr<VCardPropertyList> properties = card->propertiesWithName(name);
    return properties == nullptr ? Json() : propertiesToJson(*properties);
  }
  const auto group = arguments.get<std::optional<Text>>(2);
  const std::optional<VCardPropertyList> properties = card->propertiesWithName(name, group);
  return properties ? propertiesToJson(*properties) : Json();
}

Json withoutProperties(const CardPointer& card, TextView name) {
  const bool removed = card->removePropertiesWithName(name);
  return objectToJson("removed", removed, "card", cardToJson(card));
}

Text description(const VCard& card) {
  return card.description();
}

std::uint64_t version(const VCard& card) {
  return card.version();
}

int kind(const VCard& card) {
  return static_cast<int>(card.kind());
}

Json uid(const VCard& card) {
  return toJson(card.uid());
}

bool hasRev(const VCard& card) {
  return card.hasRev();
}

Json rev(const VCard& card) {
  return instantToJson(card.rev());
}

// Reading

/// Where a reading call leaves its summaries: whether it touched the place is part of the result.
class SummaryPlace {
 public:
  [[nodiscard]] TextList* place() noexcept { return &m_summaries; }
  [[nodiscard]] Json result() const {
    return m_summaries == untouched() ? Json() : toJson(m_summaries);
  }

 private:
  [[nodiscard]] static TextList untouched() { return {u"untouched"}; }

  TextList m_summaries = untouched();
};

Json cardsFromText(std::optional<TextView> text) {
  SummaryPlace summaries;
  const std::optional<VCardList> cards = VCard::vCardsFromString(text, summaries.place());
  return objectToJson("cards", cards ? listToJson(*cards, cardToJson) : Json(), "summaries",
                      summaries.result());
}

Json firstCardFromText(std::optional<TextView> text) {
  SummaryPlace summaries;
  const CardPointer card = VCard::firstvCardFromString(text, summaries.place());
  return objectToJson("card", cardToJson(card), "summaries", summaries.result());
}

Json cardFromScanner(TextView text, std::size_t location) {
  TextScanner scanner(text);
  scanner.setScanLocation(location);
  const CardPointer card = VCard::vCardFromScanner(&scanner);
  return objectToJson("card", cardToJson(card), "location", scanner.scanLocation());
}

// Repairs

Json withNoteOfAnotherParser(const Arguments& arguments) {
  arguments.expectCount(2, 2);
  const CardPointer card = arguments[0].IsNull() ? nullptr : arguments.get<VCard>(0);
  VCard::updateVCardUsingCNContactSerializer(card, arguments.get<std::optional<Text>>(1));
  return cardToJson(card);
}

const OperationFamily kCards([](OperationTable& table) {
  table.add("VCard::addProperty", cardOfProperties);
  table.add("VCard::propertiesWithName", propertiesWithName);
  table.add("VCard::removePropertiesWithName", withoutProperties);
  table.add("VCard::description", description);
  table.add("VCard::version", version);
  table.add("VCard::kind", kind);
  table.add("VCard::uid", uid);
  table.add("VCard::hasRev", hasRev);
  table.add("VCard::rev", rev);
  table.add("VCard::vCardsFromString", cardsFromText);
  table.add("VCard::firstvCardFromString", firstCardFromText);
  table.add("VCard::vCardFromScanner", cardFromScanner);
  table.add("VCard::normalizedStringByDecodingNumericEntitiesFromString",
            VCard::normalizedStringByDecodingNumericEntitiesFromString);
  table.add("VCard::candidatePropertyLinesFromLine", VCard::candidatePropertyLinesFromLine);
  table.add("VCard::updateVCardUsingCNContactSerializer", withNoteOfAnotherParser);
  table.add("VCard::numberFromString", VCard::numberFromString);
  table.add("VCard::stringFromUnicodeScalar", VCard::stringFromUnicodeScalar);
});

} // namespace
} // namespace cardwright::conformance
