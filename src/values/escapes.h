#pragma once

#include "cardwright/text.h"
#include "values/coded_text.h"

#include <cstddef>
#include <utility>

namespace cardwright {

/// Takes away the escapes of a text. The result and the character behind each escape go to
/// `append`, which adds what the two stand for. An escape at the very end stands for nothing.
template <typename Append>
[[nodiscard]] CodedText withoutEscapes(TextView text, char16_t escape, Append append) {
  std::size_t found = text.find(escape);
  if (found == TextView::npos) {
    return CodedText::original(text);
  }
  Text result;
  result.reserve(text.size());
  std::size_t copied = 0;
  while (found != TextView::npos) {
    result.append(text, copied, found - copied);
    copied = found + 1;
    if (copied == text.size()) {
      break;
    }
    append(result, text[copied]);
    ++copied;
    found = text.find(escape, copied);
  }
  result.append(text, copied);
  return CodedText::changed(std::move(result));
}

} // namespace cardwright
