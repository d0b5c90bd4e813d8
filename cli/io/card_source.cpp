#include "io/card_source.h"

#include "io/input.h"
#include "io/repair_notes.h"
#include "report/repair_cards.h"

#include <algorithm>
#include <cstddef>

namespace cardwright::tool {

namespace {

/// Says what was lost between the cards of a file and the reader, in one line.
void noteDroppedLines(const CardFile& file, const ReadReport& report, Diagnostics& diagnostics) {
  constexpr std::size_t kShown = 3;
  const std::vector<DroppedLine>& lines = report.droppedLines;
  const auto insideCards = [](const DroppedLine& line) {
    return line.reason != DropReason::outsideCard;
  };
  const auto count =
      static_cast<std::size_t>(std::count_if(lines.begin(), lines.end(), insideCards));
  if (count == 0) {
    return;
  }
  std::string message = count == 1 ? "1 line could not be used: "
                                   : std::to_string(count) + " lines could not be used: ";
  std::size_t shown = 0;
  for (const DroppedLine& line : lines) {
    if (!insideCards(line)) {
      continue;
    }
    if (shown == kShown) {
      message += ", and " + std::to_string(count - shown) + " more";
      break;
    }
    message += shown == 0 ? "" : ", ";
    message += "line " + std::to_string(line.place.line) + " (";
    message += dropReasonText(line.reason);
    message += ")";
    ++shown;
  }
  diagnostics.note(displayName(file.path), message);
}

} // namespace

void forEachCardFile(const ReadingOptions& options, Diagnostics& diagnostics,
                     const std::function<bool(CardFile&)>& use) {
  for (const std::string& path : options.inputs()) {
    auto bytes = readFile(path, diagnostics);
    if (!bytes) {
      continue;
    }
    diagnostics.progress().begin(options.read.clean ? "repairing" : "finding cards");
    ReadReport report;
    CardFile file{path, readCards(*bytes, &report, options.read), {}, {}, {}};
    file.cardsOfRepairs = cardsOfRepairs(*bytes, report.decoding.encoding, report.repairs);
    bytes.reset(); // the cards hold what they need
    diagnostics.progress().end();
    file.repairs = repairNotes(report.decoding, report.summaries);
    tellNotes(path, file.repairs, diagnostics);
    if (file.cards.empty()) {
      diagnostics.note(displayName(path), "no cards in it");
    } else {
      noteDroppedLines(file, report, diagnostics);
    }
    file.report = std::move(report);
    if (!use(file)) {
      return;
    }
  }
}

bool takeCards(CardFile& file, std::string_view doing, Progress& progress,
               const std::function<bool(const std::shared_ptr<VCard>&, std::size_t)>& use) {
  progress.begin(doing, file.cards.size());
  std::size_t number = 0;
  bool goesOn = true;
  for (std::shared_ptr<VCard>& card : file.cards) {
    if (!goesOn) {
      break;
    }
    goesOn = use(card, ++number);
    card.reset();
    progress.show(number);
  }
  progress.end();
  return goesOn;
}

} // namespace cardwright::tool
