#pragma once

#include "cardwright/text.h"
#include "writer/unchanged/bytes.h"
#include "writer/unchanged/names.h"
#include "writer/unchanged/values.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace cardwright {

/// The name of a content line.
struct LineName {
  TextView known; ///< upper-cased; empty for a name that is not well-known, which is upper case
  const WrittenName* meaning; ///< null likewise
  std::uint64_t order;        ///< of the property among those of its card, as of orderOf
  std::size_t begin;          ///< behind the dot of the group, if there is one
  std::size_t end;

  /// 0 for no group.
  [[nodiscard]] std::size_t groupSize() const noexcept { return begin != 0 ? begin - 1 : 0; }
  /// The upper-cased name.
  [[nodiscard]] TextView key(TextView line) const noexcept {
    return meaning != nullptr ? known : line.substr(begin, end - begin);
  }
};

/// Finds the name of a line. Absent for one that is not plainly written: of letters, digits and
/// hyphens, with one such group at most, and upper case unless it is well-known.
[[nodiscard]] std::optional<LineName> nameOf(TextView line) noexcept;

/// Longer ones are left to their properties.
inline constexpr std::size_t kLongestHeader = 512;

/// What stands before the value of a content line.
struct LineHeader {
  LineName name;
  std::size_t end = 0; ///< where the colon stands
  ValueForm form;
  std::size_t encodingBegin = 0; ///< of what says that the value is in quoted-printable, if any
  std::size_t encodingSize = 0;
  bool isOrdinary = false;     ///< whether writeCards has nothing more to mend in it
  bool isOfAllVersions = true; ///< whether its values are of the same type in all versions
};

/// Appends the header of a line that was read, and its colon, as they are written.
/// @returns absent where only the property can tell
[[nodiscard]] std::optional<LineHeader> rewriteHeader(Bytes& output, TextView line,
                                                      const LineName& name, const HeaderTask& task);

} // namespace cardwright
