#include "report/sums.h"

#include <algorithm>

namespace cardwright::tool {

namespace {

std::string counted(std::size_t count, const char* noun, const char* plural) {
  return std::to_string(count) + " " + (count == 1 ? noun : plural);
}

} // namespace

void Sums::addReading(const ReadReport& report, std::size_t held) {
  const auto lost = static_cast<std::size_t>(std::count_if(
      report.droppedLines.begin(), report.droppedLines.end(),
      [](const DroppedLine& line) { return line.reason != DropReason::outsideCard; }));
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

std::size_t repairedCards(std::string_view bytes, const ReadReport& report) {
  if (report.repairs.empty()) {
    return 0;
  }
  const Text text = decodeFile(bytes, report.decoding.encoding).value_or(Text());
  std::size_t cards = 0;
  std::size_t cardEnd = 0;
  for (const CleaningRepair& repair : report.repairs) {
    if (cards != 0 && repair.place.offset < cardEnd) {
      continue; // In the same card as the one before.
    }
    ++cards;
    cardEnd = std::min(text.find(u"END:VCARD", repair.place.offset), text.size());
  }
  return cards;
}

} // namespace cardwright::tool
