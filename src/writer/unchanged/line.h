#pragma once

#include "base/scan_lanes.h"
#include "writer/unchanged/header.h"
#include "writer/unchanged/header_memory.h"
#include "writer/unchanged/parameters.h"

#include <cstddef>

namespace cardwright {

/// A content line that a property was read from.
struct ReadLine {
  ReadableText units;
  VersionCode readAs; ///< version code that it was read in
};

/// How many units rewriteLine needs room for: each item of a parameter may repeat the longest name;
/// each unit of a value is escaped at most, a value gets the separators of at most seven
/// components, and may be decoded first.
[[nodiscard]] constexpr std::size_t roomForLine(TextView line) noexcept {
  return (kMostItems + 1) * (kLongestHeader + 8) + 3 * line.size() + 2 * kWrittenBeyond;
}

/// What is known of a line that was to be rewritten.
struct RewrittenLine {
  const LineName* name; ///< known until the next line is rewritten; null where there is none
  bool isWhole;         ///< false where only the property can tell what is written
};

/// Appends the content line that generate writes, not yet folded, for a property that nobody
/// changed since it was read from the line: the same names and texts in another spelling, without
/// making them of the line first. Where that fails, the output stays as it was.
/// @param output  has room for as many units as roomForLine tells
/// @param version version code of what is written, from 2 to 4
[[nodiscard]] RewrittenLine rewriteLine(Units& output, const ReadLine& line, VersionCode version,
                                        HeaderMemory& memory);

} // namespace cardwright
