#pragma once

#include "cardwright/date_formatter.h"
#include "cardwright/face.h"
#include "cardwright/utf8.h"

#include <string>

namespace cardwright {

/// All cards as bytes, each in the syntax of its own version.
inline std::string writtenBytes(const VCardList& cards) {
  DateFormatter formatter;
  std::string output;
  Text text;
  for (const auto& card : cards) {
    text.clear();
    card->generate(text, static_cast<VersionCode>(card->version()), &formatter);
    appendUtf8(output, text);
  }
  return output;
}

} // namespace cardwright
