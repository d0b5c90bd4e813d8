#pragma once

#include "io/diagnostics.h"
#include "reading_options.h"

#include <functional>
#include <string>
#include <vector>

namespace cardwright::tool {

/// The cards of one file.
struct CardFile {
  std::string path; ///< kStandardInput for standard input
  VCardList cards;
  std::vector<std::string> repairs; ///< one line for each, in UTF-8
  ReadReport report;
  std::vector<std::size_t> cardsOfRepairs; ///< the number of its card for each repair
};

/// Reads files one after the other, standard input where there is none, and hands on the cards of
/// each. A file that cannot be read is told and passed over.
/// @param use returns whether to go on
void forEachCardFile(const ReadingOptions& options, Diagnostics& diagnostics,
                     const std::function<bool(const CardFile&)>& use);

} // namespace cardwright::tool
