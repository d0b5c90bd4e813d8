#include "io/repair_notes.h"

#include "io/input.h"

#include <map>
#include <string_view>

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

void tellNotes(const std::string& path, const std::vector<std::string>& notes,
               Diagnostics& diagnostics) {
  std::map<std::string_view, std::size_t> counts;
  std::vector<std::string_view> inOrder;
  for (const std::string& note : notes) {
    if (++counts[note] == 1) {
      inOrder.push_back(note);
    }
  }
  for (const std::string_view note : inOrder) {
    std::string message(note);
    if (const std::size_t count = counts[note]; count > 1) {
      message.append(", ").append(std::to_string(count)).append(" times");
    }
    diagnostics.note(displayName(path), message);
  }
}

void noteRepairs(const std::string& path, const CleanReport& report, Diagnostics& diagnostics) {
  tellNotes(path, repairNotes(report.decoding, report.summaries), diagnostics);
  if (report.foreignLine) {
    diagnostics.note(displayName(path), foreignLineNote(*report.foreignLine));
  }
}

} // namespace cardwright::tool
