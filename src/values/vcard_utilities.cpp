#include "cardwright/vcard_utilities.h"

#include "base/case.h"
#include "base/graphemes.h"
#include "values/quoted_printable.h"
#include "values/valid_xml.h"

#include <algorithm>

namespace cardwright {

TextRange VCardUtilities::rangeOfUnescapedDelimiter(TextView text, char16_t delimiter,
                                                    TextRange range) noexcept {
  const std::size_t begin = std::min(range.location, text.size());
  const std::size_t end = begin + std::min(range.length, text.size() - begin);
  for (std::size_t at = begin; at < end; ++at) {
    if (text[at] == u'\\') {
      ++at;
    } else if (text[at] == delimiter) {
      return {at, 1};
    }
  }
  return {};
}

bool VCardUtilities::isEqualToCaseInsensitiveString(TextView text, std::optional<TextView> other) {
  return other && equalIgnoringCase(text, *other);
}

char16_t VCardUtilities::firstCharacter(TextView text) {
  return !text.empty() && isCharacterByItself(text, 0) ? text.front() : u'\0';
}

Text VCardUtilities::validXMLString(TextView text) {
  Text valid;
  std::size_t kept = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t invalid = invalidLengthAt(text, at);
    if (invalid == 0) {
      at += unitLength(codePointAt(text, at));
      continue;
    }
    valid.append(text, kept, at - kept);
    at += invalid;
    kept = at;
  }
  valid.append(text, kept);
  return valid;
}

void VCardUtilities::appendCRLF(Text& buffer, TextView text) {
  buffer.append(text).append(u"\r\n");
}

std::optional<Text>
VCardUtilities::stringFromQuotedPrintableStringWithCharset(TextView text,
                                                           std::optional<TextView> charset) {
  const std::optional<std::string> bytes = quotedPrintableBytes(text);
  return bytes ? stringFromData(*bytes, charset) : Text(text);
}

} // namespace cardwright
