#pragma once

#include "base/slab_pool.h"
#include "cardwright/text.h"
#include "model/change_marks.h"

#include <forward_list>
#include <vector>

namespace cardwright::detail {

/// The content lines that cards are made of, and what they are views of. The cards of a text share
/// it.
struct LineStore {
  Text text;                      ///< never changes its place
  std::forward_list<Text> copies; ///< lines that are no part of the text
  std::vector<TextView> lines;
  ChangeMarks changes;   ///< one for each card, for they are looked at in a row
  mutable SlabPool pool; ///< for what the cards make of their lines
};

} // namespace cardwright::detail
