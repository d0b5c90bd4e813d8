#pragma once

#include "cardwright/text.h"
#include "cardwright/text_place.h"

#include <string>
#include <vector>

namespace cardwright {

/// What kind of damage a repair mended. The numbers are stable.
enum class CleaningRepairKind {
  separators = 1,       ///< line ends written as CR CR or CR CR LF
  softBreak = 2,        ///< a quoted-printable value cut at a soft break without indentation
  memberEntities = 3,   ///< group members glued together by "&#13;&#10;"
  noteExtraction = 4,   ///< a property glued to the end of a note
  noteEntities = 5,     ///< "&#13;&#10;" in a note
  mergedProperties = 6, ///< several properties on one line
  danglingFragment = 7, ///< a torn-off header at the end of a value
  duplicate = 8,        ///< a bookkeeping property or member that the card has again
};

/// One repair: what a line was, where it stood and what became of it.
struct CleaningRepair {
  CleaningRepairKind kind{}; ///< what kind of damage it was
  /// Place in the text as it was before any repair. VCardCleaner does not count lines: there it is
  /// always the first.
  TextPlace place;
  Text originalLine;    ///< the logical line; for a soft break, the physical lines as they were
  TextList replacement; ///< the logical lines that took its place; none when it was removed

  /// Whether both are equal in every field.
  friend bool operator==(const CleaningRepair&, const CleaningRepair&) = default;
};

/// A line that keeps a text from being repaired: only text that is nothing but cards is touched.
struct ForeignLine {
  TextPlace place;  ///< where it begins
  std::string text; ///< UTF-8
};

} // namespace cardwright
