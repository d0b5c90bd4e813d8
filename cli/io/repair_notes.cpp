#include "io/repair_notes.h"

#include "io/input.h"

namespace cardwright::tool {

std::vector<std::string> repairNotes(const DecodingReport& decoding,
                                     const std::vector<std::string>& summaries) {
  std::vector<std::string> notes;
  if (decoding.droppedBytes != 0) {
    const bool isOne = decoding.droppedBytes == 1;
    notes.push_back(std::to_string(decoding.droppedBytes) + (isOne ? " byte" : " bytes") +
                    " dropped that " + (isOne ? "is" : "are") + " not " + decoding.encoding);
  }
  notes.insert(notes.end(), summaries.begin(), summaries.end());
  return notes;
}

std::string foreignLineNote(const ForeignLine& line) {
  return "nothing was repaired, for line " + std::to_string(line.place.line) +
         " stands outside the cards: " + line.text;
}

void noteRepairs(const std::string& path, const CleanReport& report, Diagnostics& diagnostics) {
  for (const std::string& repair : repairNotes(report.decoding, report.summaries)) {
    diagnostics.note(displayName(path), repair);
  }
  if (report.foreignLine) {
    diagnostics.note(displayName(path), foreignLineNote(*report.foreignLine));
  }
}

} // namespace cardwright::tool
