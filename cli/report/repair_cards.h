#pragma once

#include <cardwright/face.h>

#include <cstddef>
#include <string_view>
#include <vector>

namespace cardwright::tool {

/// The numbers of the cards in which repairs were made, one for each repair, counted from 1; a
/// repair before all cards belongs to the first.
/// @param encoding that the bytes were read in
/// @param repairs in the order of their places
[[nodiscard]] std::vector<std::size_t> cardsOfRepairs(std::string_view bytes,
                                                      std::string_view encoding,
                                                      const std::vector<CleaningRepair>& repairs);

/// How many cards were repaired.
/// @param cards of the repairs, in ascending order
[[nodiscard]] std::size_t distinctCards(const std::vector<std::size_t>& cards);

} // namespace cardwright::tool
