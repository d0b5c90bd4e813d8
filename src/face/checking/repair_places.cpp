#include "face/checking/repair_places.h"

#include "base/ascii.h"
#include "base/scan_lanes.h"
#include "base/whitespace.h"
#include "face/checking/line_aligner.h"

#include <algorithm>

namespace cardwright {

namespace {

/// So much of a piece is enough to find it again.
constexpr std::size_t kEnough = 32;

/// Where the second of the pieces begins that a line was cut into.
std::size_t secondPiece(const CleaningRepair& repair) {
  if (repair.replacement.size() < 2) {
    return 0;
  }
  // What a cut gave back to the first piece stood before it.
  const TextView second = TextView(repair.replacement[1]).substr(0, kEnough);
  const std::size_t from = std::min(repair.replacement[0].size(), repair.originalLine.size());
  const std::size_t behind = repair.originalLine.find(second, from);
  const std::size_t found = behind == Text::npos ? repair.originalLine.find(second, 1) : behind;
  return found == Text::npos ? 0 : found;
}

/// Where in a logical line the damage begins.
std::size_t damageInLine(const CleaningRepair& repair) {
  switch (repair.kind) {
  case CleaningRepairKind::memberEntities:
  case CleaningRepairKind::noteEntities:
    return std::min(repair.originalLine.find(u"&#1"), repair.originalLine.size());
  case CleaningRepairKind::noteExtraction:
  case CleaningRepairKind::mergedProperties:
    return secondPiece(repair);
  case CleaningRepairKind::danglingFragment: {
    const std::size_t kept = repair.replacement.empty() ? 0 : repair.replacement[0].size();
    const std::size_t begin = repair.originalLine.find_first_not_of(u" \t", kept);
    return begin == Text::npos ? 0 : begin;
  }
  default:
    return 0;
  }
}

/// The "=" of the first soft break whose next line is not indented.
std::size_t openSoftBreak(TextView text, std::size_t begin) {
  for (std::size_t at = begin; at < text.size();) {
    std::size_t end = at;
    while (end < text.size() && !isLineTerminator(text[end])) {
      ++end;
    }
    std::size_t next = end;
    while (next < text.size() && isLineTerminator(text[next])) {
      ++next;
    }
    if (next >= text.size() || !isSpaceOrTab(text[next])) {
      while (end > at && isSpaceOrTab(text[end - 1])) {
        --end;
      }
      return end > at ? end - 1 : begin;
    }
    at = next;
  }
  return begin;
}

} // namespace

std::size_t damageOf(const CleaningRepair& repair, TextView original) {
  if (repair.kind == CleaningRepairKind::separators) {
    return std::min(findDoubleCr(original), original.size());
  }
  if (repair.kind == CleaningRepairKind::softBreak) {
    return openSoftBreak(original, repair.place.offset);
  }
  LineAligner aligner(original, repair.place.offset);
  aligner.setLine(repair.originalLine);
  return aligner.placeOf(damageInLine(repair));
}

} // namespace cardwright
