#pragma once

#include "view/card_names.h"

#include <cardwright/vcard.h>

#include <vector>

namespace cardwright::tool {

/// One line, or more, of the table that shows a card.
struct CardRow {
  Text label;
  Text value;         ///< with line ends where it has several lines
  TextList remarks;   ///< what is to be said about the value, such as "preferred"
  bool wraps = false; ///< whether the value is prose
  bool isBookkeeping = false;
};

/// A card as people see it.
struct CardView {
  Text name;    ///< empty when there is nothing to call it by
  Text species; ///< "organisation", "group, 3 members"; empty for a person
  std::vector<CardRow> rows;
};

[[nodiscard]] CardView viewOfCard(const VCard& card, CardNames& names);

} // namespace cardwright::tool
