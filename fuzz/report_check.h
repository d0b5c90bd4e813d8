#pragma once

#include "demand.h"

#include <cardwright/read_report.h>
#include <cardwright/vcard.h>

#include <cstddef>

namespace cardwright {

/// Demands that a report fits the cards it came with.
inline void checkReport(const ReadReport& report, const VCardList& cards, bool wasCleaned) {
  std::size_t properties = 0;
  for (const auto& card : cards) {
    for (const auto& [key, list] : card->propertyDict()) {
      properties += list->size();
    }
  }
  demand(report.cards == cards.size());
  // A card without a VERSION gets one, which is not counted.
  demand(report.properties <= properties && properties <= report.properties + cards.size());
  TextPlace last;
  for (const DroppedLine& dropped : report.droppedLines) {
    demand(dropped.reason != DropReason::none);
    demand(dropped.place.offset >= last.offset && dropped.place.line >= last.line);
    last = dropped.place;
  }
  demand(report.summaries.empty() == report.repairs.empty());
  demand(wasCleaned || report.repairs.empty());
}

} // namespace cardwright
