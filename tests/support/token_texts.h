#pragma once

#include "cardwright/text.h"
#include "support/combinations.h"

#include <cstddef>
#include <vector>

namespace cardwright {

/// Calls `test` with every text of at most `longest` tokens, and returns how many there are.
template <typename Test>
std::size_t forEachTextOf(const std::vector<TextView>& tokens, std::size_t longest, Test test) {
  std::size_t count = 0;
  forEachCombination(tokens, longest, [&](const std::vector<TextView>& chosen) {
    Text text;
    for (const TextView token : chosen) {
      text += token;
    }
    test(text);
    ++count;
  });
  return count;
}

} // namespace cardwright
