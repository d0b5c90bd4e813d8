#include "values/quoted_printable.h"

#include "base/ascii.h"

#include <algorithm>

namespace cardwright {

namespace {

/// The value of a digit, 16 or more when it is none. The characters between "9" and "A" count 3 to
/// 9: written data relies on that, so it stays.
constexpr unsigned digitValue(char16_t unit) noexcept {
  const unsigned value = unit - 48U;
  return value < 10 ? value : unit - 55U;
}

} // namespace

std::optional<std::string> quotedPrintableBytes(TextView text) {
  if (!std::all_of(text.begin(), text.end(), isAscii)) {
    return std::nullopt;
  }
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    char16_t byte = text[at];
    if (byte != u'=') {
      ++at;
    } else if (at + 1 == text.size()) {
      break;
    } else if (text[at + 1] == u'\n') {
      at += 2;
      continue;
    } else if (text[at + 1] == u'\r') {
      // Whatever follows is taken for the LF of the soft line break.
      at += 3;
      continue;
    } else if (at + 2 == text.size()) {
      break;
    } else {
      const unsigned high = digitValue(text[at + 1]);
      const unsigned low = digitValue(text[at + 2]);
      if (high >= 16 || low >= 16) {
        ++at; // Only the "=" goes; what stands behind it is text.
        continue;
      }
      byte = static_cast<char16_t>(high * 16 + low);
      at += 3;
    }
    if (byte == 0) {
      break;
    }
    bytes.push_back(static_cast<char>(byte));
  }
  return bytes;
}

} // namespace cardwright
