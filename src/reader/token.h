#pragma once

#include "base/whitespace.h"
#include "cardwright/text.h"

#include <cstddef>
#include <optional>

namespace cardwright {

/// Reads a token at `location` and moves the location behind it: after blanks, what stands between
/// double quotes, or everything up to a delimiter.
/// @returns absent when the token is empty, or when nothing follows it though something must; the
///          location may have moved all the same
template <typename IsDelimiter>
[[nodiscard]] std::optional<TextView> scanTokenUpTo(TextView text, std::size_t& location,
                                                    IsDelimiter isDelimiter, bool endOfLineIsOK) {
  while (location < text.size() && isWhitespace(text[location])) {
    ++location;
  }
  TextView token;
  if (location < text.size() && text[location] == u'"') {
    const std::size_t begin = ++location;
    while (location < text.size() && text[location] != u'"') {
      ++location;
    }
    token = text.substr(begin, location - begin);
    if (location < text.size()) {
      ++location;
    }
  } else {
    const std::size_t begin = location;
    while (location < text.size() && !isDelimiter(text[location])) {
      ++location;
    }
    token = location > begin ? text.substr(begin, location - begin) : TextView();
  }
  if (token.empty() || (!endOfLineIsOK && location >= text.size())) {
    return std::nullopt;
  }
  return token;
}

} // namespace cardwright
