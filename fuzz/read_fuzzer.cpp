// Any bytes give cards: never a crash, a leak or an endless loop, and a report that fits the cards.

#include "demand.h"
#include "report_check.h"

#include <cardwright/cardwright.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

using cardwright::demand;

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

void walkCard(const cardwright::VCard& card) {
  volatile std::size_t sum =
      card.uid().value_or(u"").size() + static_cast<std::size_t>(card.kind());
  sum = sum + card.version() + (card.rev().has_value() ? 1 : 0);
  for (const auto& [key, list] : card.propertyDict()) {
    demand(!list->empty());
    for (const auto& property : *list) {
      demand(key == property->name());
      sum = sum + walkProperty(*property);
    }
  }
}

void read(std::string_view bytes, bool clean) {
  cardwright::ReadOptions options;
  options.clean = clean;
  cardwright::ReadReport report;
  const cardwright::VCardList cards = cardwright::readCards(bytes, &report, options);

  for (const auto& card : cards) {
    walkCard(*card);
  }
  cardwright::checkReport(report, cards, clean);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  read(bytes, false);
  read(bytes, true);
  return 0;
}
