#include "reader/token.h"

#include "cardwright/text_scanner.h"

namespace cardwright {

bool TextScanner::scanQuotedStringOrUptoDelimiters(TextView delimiters, Text* token,
                                                   bool endOfLineIsOK) {
  const auto isDelimiter = [delimiters](char16_t unit) {
    return delimiters.find(unit) != TextView::npos;
  };
  const std::optional<TextView> scanned =
      scanTokenUpTo(m_text, m_location, isDelimiter, endOfLineIsOK);
  if (scanned && token != nullptr) {
    token->assign(*scanned);
  }
  return scanned.has_value();
}

} // namespace cardwright
