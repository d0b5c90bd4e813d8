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

/// How much of UTF-8 can be read by itself: up to a card that begins right behind the end of
/// another one. A soft break or a blank line in front of the end could make it part of a value.
std::size_t portionSize(std::string_view bytes) {
  constexpr std::size_t kPortion = std::size_t{1} * 1024 * 1024;
  constexpr std::string_view kEnd = "\nEND:VCARD";
  constexpr std::string_view kBegin = "\nBEGIN:VCARD";
  for (std::size_t at = bytes.find(kEnd, kPortion); at != std::string_view::npos;
       at = bytes.find(kEnd, at + 1)) {
    std::string_view before = bytes.substr(0, at);
    before = before.substr(0, before.ends_with('\r') ? at - 1 : at);
    std::string_view after = bytes.substr(at + kEnd.size());
    after = after.substr(after.starts_with('\r') ? 1 : 0);
    if (after.starts_with(kBegin) && !before.empty() && before.back() > ' ' &&
        before.back() != '=') {
      return bytes.size() - after.size() + 1;
    }
  }
  return bytes.size();
}

} // namespace

void HeldCounts::add(const ReadReport& report) {
  cards += report.cards;
  properties += report.properties + lostLines(report);
}

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

HeldCounts countHeld(std::string_view bytes, const std::string& encoding) {
  ReadOptions options;
  options.encoding = encoding;
  options.clean = false;
  HeldCounts held;
  while (!bytes.empty()) {
    const std::size_t size = encoding == "UTF-8" ? portionSize(bytes) : bytes.size();
    ReadReport report;
    static_cast<void>(readCards(bytes.substr(0, size), &report, options));
    held.add(report);
    bytes.remove_prefix(size);
  }
  return held;
}

} // namespace cardwright::tool
