#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace cardwright {

/// Bytes of UTF-8 that a physical line may hold, the blank before a continuation included.
inline constexpr std::size_t kLineBytes = 75;

/// Appends a content line cut into physical lines of at most kLineBytes, each ended by CR LF.
/// Characters are never cut: one that is longer than a line stands on a line alone.
/// @param isContinuation whether it is what is left of a line, which goes on behind a blank
void appendFolded(Text& output, TextView line, bool isContinuation = false);

/// The same with a line of sound UTF-8.
void appendFoldedUtf8(std::string& output, std::string_view line);

/// Whether a content line takes one physical line.
[[nodiscard]] bool fitsIntoOne(TextView line) noexcept;

/// appendFolded, a little sooner for lines that most often fit into one physical line.
void appendLine(Text& output, TextView line);

/// Folds the end of a text, from `begin` on.
void foldTail(Text& text, std::size_t begin);

} // namespace cardwright
