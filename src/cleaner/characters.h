#pragma once

#include "base/graphemes.h"
#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

/// Whether the unit at `at`, a sign of the line syntax, is a character by itself: a colon with a
/// combining mark is no colon. Constant time.
[[nodiscard]] inline bool standsAlone(TextView text, std::size_t at) {
  constexpr char16_t kFirstThatJoins = 0x300;
  const bool hasPlainNeighbours = (at == 0 || text[at - 1] < kFirstThatJoins) &&
                                  (at + 1 >= text.size() || text[at + 1] < kFirstThatJoins);
  return hasPlainNeighbours || isCharacterByItself(text, at);
}

/// The first place where `sign` stands as a character, or npos.
[[nodiscard]] inline std::size_t findCharacter(TextView text, char16_t sign) {
  std::size_t at = text.find(sign);
  while (at != TextView::npos && !standsAlone(text, at)) {
    at = text.find(sign, at + 1);
  }
  return at;
}

/// Whether the last character is exactly `sign`.
[[nodiscard]] inline bool endsWithCharacter(TextView text, char16_t sign) {
  return !text.empty() && text.back() == sign && standsAlone(text, text.size() - 1);
}

} // namespace cardwright
