// Any bytes give cards: never a crash, a leak or an endless loop, and a report that fits the cards.

#include <cardwright/cardwright.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void demand(bool isTrue) {
  if (!isTrue) {
    std::abort();
  }
}

// The sum keeps the compiler from leaving reads out.
std::size_t walkProperty(const cardwright::VCardProperty& property) {
  std::size_t sum = property.name().size() + property.group().value_or(u"").size();
  sum += property.textValue().value_or(u"").size();
  sum += property.dateValue().has_value() ? 1 : 0;
  demand(property.value() != nullptr);
  sum += property.value()->type().value_or(u"").size();
  for (const auto& [key, parameter] :
       property.parameterDict().value_or(cardwright::VCardParameterDict{})) {
    demand(key == parameter->name());
    for (const cardwright::Text& value : parameter->values()) {
      sum += value.size();
    }
  }
  return sum;
}

std::size_t walkCard(const cardwright::VCard& card) {
  std::size_t properties = 0;
  volatile std::size_t sum =
      card.uid().value_or(u"").size() + static_cast<std::size_t>(card.kind());
  sum = sum + card.version() + (card.rev().has_value() ? 1 : 0);
  for (const auto& [key, list] : card.propertyDict()) {
    demand(!list->empty());
    properties += list->size();
    for (const auto& property : *list) {
      demand(key == property->name());
      sum = sum + walkProperty(*property);
    }
  }
  return properties;
}

void read(std::string_view bytes, bool clean) {
  cardwright::ReadOptions options;
  options.clean = clean;
  cardwright::ReadReport report;
  const cardwright::VCardList cards = cardwright::readCards(bytes, &report, options);

  std::size_t properties = 0;
  for (const auto& card : cards) {
    properties += walkCard(*card);
  }
  demand(report.cards == cards.size());
  // A card without a VERSION gets one, which is not counted.
  demand(report.properties <= properties && properties <= report.properties + cards.size());
  cardwright::TextPlace last;
  for (const cardwright::DroppedLine& dropped : report.droppedLines) {
    demand(dropped.reason != cardwright::DropReason::none);
    demand(dropped.place.offset >= last.offset && dropped.place.line >= last.line);
    last = dropped.place;
  }
  demand(report.summaries.empty() == report.repairs.empty());
  demand(clean || report.repairs.empty());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  read(bytes, false);
  read(bytes, true);
  return 0;
}
