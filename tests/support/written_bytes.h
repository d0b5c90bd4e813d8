#pragma once

#include "cardwright/date_formatter.h"
#include "cardwright/face.h"

#include <string>

namespace cardwright {

/// All cards as bytes, each in the syntax of its own version.
inline std::string writtenBytes(const VCardList& cards) {
  DateFormatter formatter;
  std::string output;
  for (const auto& card : cards) {
    card->generateUtf8(output, static_cast<VersionCode>(card->version()), &formatter);
  }
  return output;
}

} // namespace cardwright
