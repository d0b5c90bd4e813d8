#pragma once

#include "cardwright/text.h"
#include "writer/unchanged/names.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace cardwright {

/// A content line that a property was read from, with what stands before its parameters.
struct ReadLine {
  TextView line;
  VersionCode readAs; ///< version code that it was read in

  // What findName finds.
  TextView key;                      ///< upper-cased name
  const NameRow<WrittenName>* known; ///< null for a name that is not well-known
  std::uint64_t order;               ///< of the property among those of its card, as of orderOf
  std::size_t groupEnd;              ///< where the dot stands; 0 for no group
  std::size_t nameEnd;

  [[nodiscard]] bool hasGroup() const noexcept { return groupEnd != 0; }
  [[nodiscard]] TextView group() const noexcept { return line.substr(0, groupEnd); }
};

/// Finds the name of a line. False for one that is not plainly written: of letters, digits and
/// hyphens, with one such group at most, and upper case unless it is well-known.
[[nodiscard]] bool findName(ReadLine& line);

/// How many units asWritten needs room for; absent for a line that it should not be asked about.
[[nodiscard]] std::optional<std::size_t> roomForLine(TextView line) noexcept;
/// As much is enough for a line of ordinary length.
inline constexpr std::size_t kOrdinaryRoom = 2048;

/// The content line that generate writes, not yet folded, for a property that nobody changed since
/// it was read from the line: the same names and texts in another spelling, without making them of
/// the line first. Absent where only the property itself can tell.
/// @param units   room for as many as roomForLine tells
/// @param version version code of what is written, from 2 to 4
[[nodiscard]] std::optional<TextView> asWritten(char16_t* units, const ReadLine& line,
                                                VersionCode version);

} // namespace cardwright
