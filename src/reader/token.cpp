#include "reader/token.h"

#include "base/whitespace.h"
#include "cardwright/text_scanner.h"

namespace cardwright {

std::optional<TextView> scanToken(TextView text, std::size_t& location, TextView delimiters,
                                  bool endOfLineIsOK) noexcept {
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
    while (location < text.size() && delimiters.find(text[location]) == TextView::npos) {
      ++location;
    }
    token = location > begin ? text.substr(begin, location - begin) : TextView();
  }
  if (token.empty() || (!endOfLineIsOK && location >= text.size())) {
    return std::nullopt;
  }
  return token;
}

bool TextScanner::scanQuotedStringOrUptoDelimiters(TextView delimiters, Text* token,
                                                   bool endOfLineIsOK) {
  const std::optional<TextView> scanned = scanToken(m_text, m_location, delimiters, endOfLineIsOK);
  if (scanned && token != nullptr) {
    token->assign(*scanned);
  }
  return scanned.has_value();
}

} // namespace cardwright
