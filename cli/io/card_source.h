#pragma once

#include "io/diagnostics.h"
#include "reading_options.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
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
                     const std::function<bool(CardFile&)>& use);

/// Hands on the cards of a file one after the other and lets each go then, for what a card says
/// takes many times the memory of its lines.
/// @param doing what is done with them, of static storage
/// @param use   gets the card and its number, counted from 1, and returns whether to go on
/// @returns whether all were handed on
bool takeCards(CardFile& file, std::string_view doing, Progress& progress,
               const std::function<bool(const std::shared_ptr<VCard>&, std::size_t)>& use);

} // namespace cardwright::tool
