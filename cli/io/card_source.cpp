#include "io/card_source.h"

#include "io/input.h"

#include <algorithm>
#include <cstddef>

namespace cardwright::tool {

namespace {

/// "3 bytes dropped that are not UTF-8"
std::string droppedBytesText(const DecodingReport& decoding) {
  return std::to_string(decoding.droppedBytes) + (decoding.droppedBytes == 1 ? " byte" : " bytes") +
         " dropped that " + (decoding.droppedBytes == 1 ? "is" : "are") + " not " +
         decoding.encoding;
}

void noteDroppedBytes(const CardFile& file, const DecodingReport& decoding,
                      Diagnostics& diagnostics) {
  if (decoding.droppedBytes != 0) {
    diagnostics.note(displayName(file.path), droppedBytesText(decoding));
  }
}

/// What was repaired, the decoding first.
std::vector<std::string> repairsOf(const ReadReport& report) {
  std::vector<std::string> repairs;
  if (report.decoding.droppedBytes != 0) {
    repairs.push_back(droppedBytesText(report.decoding));
  }
  repairs.insert(repairs.end(), report.summaries.begin(), report.summaries.end());
  return repairs;
}

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
                     const std::function<bool(const CardFile&)>& use) {
  static const std::vector<std::string> kOnlyStandardInput{std::string(kStandardInput)};
  for (const std::string& path : options.files.empty() ? kOnlyStandardInput : options.files) {
    auto bytes = readFile(path, diagnostics);
    if (!bytes) {
      continue;
    }
    ReadReport report;
    CardFile file{path, readCards(*bytes, &report, options.read), {}};
    bytes.reset(); // the cards hold what they need
    noteDroppedBytes(file, report.decoding, diagnostics);
    file.repairs = repairsOf(report);
    if (file.cards.empty()) {
      diagnostics.note(displayName(path), "no cards in it");
    } else {
      noteDroppedLines(file, report, diagnostics);
    }
    if (!use(file)) {
      return;
    }
  }
}

} // namespace cardwright::tool
