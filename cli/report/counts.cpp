#include "report/counts.h"

#include <cardwright/codes.h>
#include <cardwright/utf8.h>

namespace cardwright::tool {

namespace {

const char* versionName(std::uint64_t version) {
  switch (version) {
  case 2:
    return "2.1";
  case 3:
    return "3.0";
  case 4:
    return "4.0";
  default:
    return "other";
  }
}

void addTo(Tally& tally, std::string_view name, std::size_t count = 1) {
  if (count == 0) {
    return;
  }
  if (const auto found = tally.find(name); found != tally.end()) {
    found->second += count;
  } else {
    tally.emplace(name, count);
  }
}

void takeFrom(Tally& tally, std::string_view name, std::size_t count) {
  const auto found = tally.find(name);
  if (found != tally.end() && (found->second -= count) == 0) {
    tally.erase(found);
  }
}

void addAll(Tally& tally, const Tally& other) {
  for (const auto& [name, count] : other) {
    addTo(tally, name, count);
  }
}

} // namespace

void Counts::addReading(const ReadReport& report) {
  addTo(repairs, "dropped-bytes", report.decoding.droppedBytes != 0 ? 1 : 0);
  for (const CleaningRepair& repair : report.repairs) {
    addTo(repairs, codeOf(repair.kind));
  }
  for (const DroppedLine& line : report.droppedLines) {
    addTo(droppedLines, codeOf(line.reason));
  }
  // A card that states no version was given one.
  if (const std::size_t added = m_held - report.properties; added != 0) {
    addTo(versions, "none", added);
    takeFrom(versions, "3.0", added);
    takeFrom(names, "VERSION", added);
  }
  properties += report.properties;
  m_held = 0;
}

void Counts::addCard(const VCard& card) {
  ++cards;
  addTo(versions, versionName(card.version()));
  for (const auto& [name, list] : card.propertyDict()) {
    addTo(names, utf8FromText(name), list->size());
    m_held += list->size();
  }
}

void Counts::add(const Counts& other) {
  cards += other.cards;
  properties += other.properties;
  addAll(versions, other.versions);
  addAll(names, other.names);
  addAll(repairs, other.repairs);
  addAll(droppedLines, other.droppedLines);
}

std::size_t sumOf(const Tally& tally) {
  std::size_t sum = 0;
  for (const auto& entry : tally) {
    sum += entry.second;
  }
  return sum;
}

} // namespace cardwright::tool
