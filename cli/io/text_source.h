#pragma once

#include "io/diagnostics.h"
#include "reading_options.h"
#include "report/sums.h"

#include <cardwright/face.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright::tool {

/// The text of one file, decoded and, where that was asked for, repaired.
struct TextFile {
  std::string path; ///< kStandardInput for standard input
  std::string text; ///< UTF-8 without a byte-order mark
  CleanReport report;
  std::optional<HeldCounts> before;        ///< what it held; absent when nothing was repaired
  std::vector<std::size_t> cardsOfRepairs; ///< the number of its card for each repair
};

/// A card as it stands in a text.
struct TextPiece {
  std::string text;           ///< the lines that it was read from, each ended by CR LF
  VCardList cards;            ///< one, unless its frame is broken; none for text outside of cards
  std::size_t properties = 0; ///< the lines that cannot be used among them
};

/// Reads files one after the other, standard input where there is none, and hands on the text of
/// each. A file that cannot be read is told and passed over.
/// @param use returns whether to go on
void forEachTextFile(const ReadingOptions& options, Diagnostics& diagnostics,
                     const std::function<bool(TextFile&)>& use);

/// Hands on a text piece by piece.
/// @param doing what is done with them, of static storage
/// @param use   returns whether to go on
/// @returns whether all were handed on
bool forEachPiece(const TextFile& file, std::string_view doing, Progress& progress,
                  const std::function<bool(const TextPiece&)>& use);

} // namespace cardwright::tool
