#include "face/reporting.h"

#include "base/line_counter.h"
#include "cardwright/utf8.h"
#include "cleaner/envelope.h"

namespace cardwright {

Text decodedBytes(std::string_view bytes, std::optional<std::string_view> encoding,
                  DecodingReport& report) {
  std::optional<Text> text = decodeFile(bytes, encoding, &report);
  return text ? std::move(*text) : decodeFile(bytes, std::nullopt, &report).value_or(Text());
}

void reportRepairs(Cleaning& cleaning, TextView original, std::vector<std::string>& summaries,
                   std::vector<CleaningRepair>& repairs) {
  for (const Text& summary : cleaning.summaries) {
    summaries.push_back(utf8FromText(summary));
  }
  repairs = std::move(cleaning.repairs);
  LineCounter lines(original);
  for (CleaningRepair& repair : repairs) {
    repair.place.line = lines.lineAt(repair.place.offset);
  }
}

std::optional<ForeignLine> foreignLine(const Cleaning& cleaning, TextView text) {
  const std::optional<TextRange> line = cleaning.isEnvelope ? std::nullopt : findForeignLine(text);
  if (!line) {
    return std::nullopt;
  }
  return ForeignLine{{line->location, LineCounter(text).lineAt(line->location)},
                     utf8FromText(text.substr(line->location, line->length))};
}

void placeDroppedLines(const Cleaning& cleaning, TextView original,
                       std::vector<DroppedLine>& droppedLines) {
  std::vector<std::size_t> offsets;
  offsets.reserve(droppedLines.size());
  for (const DroppedLine& line : droppedLines) {
    offsets.push_back(line.place.offset);
  }
  translateToOriginal(cleaning, original, offsets);
  LineCounter lines(original);
  for (std::size_t i = 0; i < offsets.size(); ++i) {
    droppedLines[i].place = {offsets[i], lines.lineAt(offsets[i])};
  }
}

} // namespace cardwright
