#pragma once

#include "cardwright/text.h"
#include "cardwright/vcard_utilities.h"
#include "values/coded_text.h"

#include <optional>

namespace cardwright {

/// Takes away backslash escapes: "\n" and "\r" in either case are LF and CR, any other character
/// stands for itself, and a backslash at the end for nothing.
[[nodiscard]] CodedText unescapedText(TextView text);

/// VCardUtils::decodeTextValue of a text that is there.
[[nodiscard]] std::optional<CodedText> decodedText(TextView text, bool quotedPrintable,
                                                   std::optional<TextView> charset);

/// VCardUtils::decodeParameterTextValue.
[[nodiscard]] CodedText decodedParameterText(TextView text);
/// VCardUtils::encodeParameterTextValue.
[[nodiscard]] CodedText encodedParameterText(TextView text);

/// Hands each piece of a list between commas that are not escaped to `receive`; there is always at
/// least one.
template <typename Receive>
void forEachListPiece(TextView list, Receive receive) {
  for (;;) {
    const TextRange comma = VCardUtilities::rangeOfUnescapedDelimiter(list, u',', {0, list.size()});
    receive(list.substr(0, comma.location));
    if (comma.length == 0) {
      return;
    }
    list.remove_prefix(comma.location + 1);
  }
}

} // namespace cardwright
