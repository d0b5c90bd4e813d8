#pragma once

#include "base/readable_text.h"
#include "writer/unchanged/header.h"
#include "writer/unchanged/header_memory.h"
#include "writer/unchanged/parameters.h"
#include "writer/unchanged/rewriting.h"

#include <cstddef>

namespace cardwright {

/// A content line that a property was read from.
struct ReadLine {
  ReadableText units;
  VersionCode readAs; ///< version code that it was read in
  /// 0, or the version that its card states, where the line is to be written as writeCards does it,
  /// if it plainly can be.
  VersionCode stated = 0;

  [[nodiscard]] bool isWrittenSafely() const noexcept { return stated != 0; }
};

/// How many bytes a header is rewritten in: each item of a parameter may repeat the longest name.
inline constexpr std::size_t kRoomForHeader = (kMostItems + 1) * (kLongestHeader + 8);

/// How many bytes rewriteLine needs room for to begin, and how many in any case.
[[nodiscard]] constexpr std::size_t roomToBeginLine(TextView line) noexcept {
  return kRoomForHeader + roomToBegin(line.size());
}
[[nodiscard]] constexpr std::size_t roomForLine(TextView line) noexcept {
  return kRoomForHeader + roomForValue(line.size());
}

/// What is known of a line that was to be rewritten.
struct RewrittenLine {
  const LineName* name; ///< known until the next line is rewritten; null where there is none
  Rewriting rewriting;
  /// What says in the line that it is quoted-printable, where it was rewritten decoded; else empty.
  TextView quotedPrintable{};
};

/// Appends, in UTF-8, the content line that generate or writeCards writes, not yet folded, for a
/// property that nobody changed since it was read from the line: the same names and texts in
/// another spelling, without making them of the line first. Where that fails, the output stays as
/// it was.
/// @param output  has room for as many bytes as roomToBeginLine tells
/// @param version version code of what is written, from 2 to 4
[[nodiscard]] RewrittenLine rewriteLine(Bytes& output, const ReadLine& line, VersionCode version,
                                        HeaderMemory& memory);

} // namespace cardwright
