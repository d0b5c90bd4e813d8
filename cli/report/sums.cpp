#include "report/sums.h"

#include <algorithm>

namespace cardwright::tool {

namespace {

std::string counted(std::size_t count, const char* noun, const char* plural) {
  return std::to_string(count) + " " + (count == 1 ? noun : plural);
}

std::size_t lostLines(const ReadReport& report) {
  return static_cast<std::size_t>(std::count_if(
      report.droppedLines.begin(), report.droppedLines.end(),
      [](const DroppedLine& line) { return line.reason != DropReason::outsideCard; }));
}

} // namespace

void Sums::addReading(const ReadReport& report, std::size_t held) {
  const std::size_t lost = lostLines(report);
  cardsIn += report.cards;
  propertiesIn += report.properties + lost;
  propertiesDropped += lost;
  propertiesAdded += held - report.properties; // A version that nothing stated.
}

void Sums::addConversion(const ConversionReport& report) {
  propertiesAdded += report.added;
  propertiesMerged += report.merged;
  propertiesDropped += report.dropped;
}

void Sums::addWriting(const WriteReport& report) {
  cardsOut += report.cards;
  propertiesOut += report.properties - report.dropped;
  propertiesDropped += report.dropped;
}

void Sums::addCleaning(const HeldCounts& before, const HeldCounts& after,
                       const std::vector<CleaningRepair>& repairs) {
  std::size_t removed = 0;
  std::size_t cut = 0;
  for (const CleaningRepair& repair : repairs) {
    if (repair.kind == CleaningRepairKind::duplicate) {
      ++removed;
    } else if (!repair.replacement.empty()) {
      cut += repair.replacement.size() - 1;
    }
  }
  cardsIn += before.cards;
  cardsOut += after.cards;
  propertiesIn += before.properties;
  propertiesOut += after.properties;
  propertiesDropped += removed;
  const std::size_t arisen = before.properties + cut;
  const std::size_t found = after.properties + removed;
  propertiesAdded += cut + (found > arisen ? found - arisen : 0);
  propertiesMerged += arisen > found ? arisen - found : 0; // Pieces of torn lines.
}

std::string Sums::line() const {
  std::string text = counted(cardsIn, "card", "cards") + " in, " + std::to_string(cardsOut) +
                     " out, " + std::to_string(cardsRepaired) + " repaired; ";
  text += counted(propertiesIn, "property", "properties") + " in, " +
          std::to_string(propertiesOut) + " out, " + std::to_string(propertiesDropped) + " dropped";
  if (propertiesAdded != 0) {
    text += ", " + std::to_string(propertiesAdded) + " added";
  }
  if (propertiesMerged != 0) {
    text += ", " + std::to_string(propertiesMerged) + " merged";
  }
  return text;
}

HeldCounts countHeld(std::string_view bytes, const std::optional<std::string>& encoding) {
  ReadReport report;
  ReadOptions options;
  options.encoding = encoding;
  options.clean = false;
  static_cast<void>(readCards(bytes, &report, options));
  return {report.cards, report.properties + lostLines(report)};
}

} // namespace cardwright::tool
