#pragma once

#include "face/checking/card_lines.h"
#include "face/checking/check_table.h"

#include <string>
#include <vector>

namespace cardwright {

/// A finding before its place is told.
struct FoundCheck {
  Check check;
  LinePlace place;
  Text subject; ///< what it is about; the same mistake about the same thing is told once
};

/// Gathers findings.
class CheckFinder {
 public:
  void add(Check check, LinePlace place, TextView subject = {}) {
    m_found.push_back({check, place, Text(subject)});
  }
  [[nodiscard]] std::vector<FoundCheck>& found() noexcept { return m_found; }

 private:
  std::vector<FoundCheck> m_found;
};

/// Where the value of a property begins, behind blanks.
[[nodiscard]] LinePlace placeOfValue(const CheckedLine& line);

/// Names, parameters, types, encodings and kinds of values that the version does not have.
void checkNames(const CheckedLine& line, VersionCode version, CheckFinder& finder);
/// Values that cannot be understood.
void checkValue(const CheckedLine& line, VersionCode version, CheckFinder& finder);
/// Frames, what is missing, and what there is too much of.
void checkCard(const CheckedCard& card, CheckFinder& finder);
/// What cards say of each other.
void checkReferences(const std::vector<CheckedCard>& cards, CheckFinder& finder);

} // namespace cardwright
