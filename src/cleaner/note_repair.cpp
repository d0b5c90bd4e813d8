#include "cleaner/note_repair.h"

#include "base/case.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/line_predicates.h"

namespace cardwright {

namespace {

constexpr TextView kCrEntity = u"&#13;";
constexpr TextView kLfEntity = u"&#10;";

/// How long the entity of a line break is that begins at the position: 10 for the pair, else 5, or
/// 0.
std::size_t lineBreakAt(TextView value, std::size_t position) noexcept {
  const TextView rest = value.substr(position);
  if (rest.starts_with(kCrEntity)) {
    const bool isPair = rest.substr(kCrEntity.size()).starts_with(kLfEntity);
    return kCrEntity.size() + (isPair ? kLfEntity.size() : 0);
  }
  return rest.starts_with(kLfEntity) ? kLfEntity.size() : 0;
}

void appendEscaped(Text& output, TextView value) {
  std::size_t copied = 0;
  for (std::size_t at = value.find(u"&#1"); at != TextView::npos;) {
    const std::size_t length = lineBreakAt(value, at);
    if (length != 0) {
      output.append(value.substr(copied, at - copied));
      output.append(u"\\n");
      copied = at + length;
    }
    at = value.find(u"&#1", at + (length != 0 ? length : 1));
  }
  output.append(value.substr(copied));
}

} // namespace

Text withEscapedLineBreaks(TextView noteLine) {
  Text line(noteLine.substr(0, firstUnquotedColon(noteLine) + 1));
  appendEscaped(line, noteLine.substr(line.size()));
  return line;
}

Text VCardCleaner::decodeNoteNumericEntitiesToEscapes(TextView value) {
  Text decoded;
  appendEscaped(decoded, value);
  return decoded;
}

TextView VCardCleaner::trimTrailingNoteSeparators(TextView value) {
  while (value.ends_with(kCrEntity) || value.ends_with(kLfEntity)) {
    value.remove_suffix(kCrEntity.size());
  }
  return value;
}

Text VCardCleaner::asciiUppercased(TextView text) {
  return upperCased(text);
}

Text VCardCleaner::asciiLowercased(TextView text) {
  return lowerCased(text);
}

} // namespace cardwright
