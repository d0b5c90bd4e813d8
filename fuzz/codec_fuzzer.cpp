// Any bytes go through the text codec, in any character set, and what must undo each other does.
// The first byte tells the character set and whether the rest is text in UTF-8 or in UTF-16.

#include "demand.h"

#include <cardwright/decode.h>
#include <cardwright/utf8.h>
#include <cardwright/vcard_utilities.h>
#include <cardwright/vcard_utils.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace {

using cardwright::demand;
using cardwright::Text;
using cardwright::TextView;
using cardwright::VCardUtilities;
using cardwright::VCardUtils;

constexpr const char* kCharsets[] = {
    "utf-8",        "us-ascii",     "iso-8859-1",  "iso-8859-8",   "windows-1252",
    "windows-1255", "koi8-r",       "shift_jis",   "euc-jp",       "iso-2022-jp",
    "euc-kr",       "iso-2022-kr",  "gb2312",      "euc-cn",       "hz-gb-2312",
    "iso-2022-cn",  "big5",         "euc-tw",      "utf-16",       "utf-16le",
    "utf-16be",     "windows-1258", "iso-8859-11", "windows-1257", "not-a-name",
};

Text textFromPairs(std::string_view bytes) {
  Text text;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto high = static_cast<unsigned char>(bytes[i]);
    const auto low = static_cast<unsigned char>(bytes[i + 1]);
    text.push_back(static_cast<char16_t>(high * 256U + low));
  }
  return text;
}

void tryBytes(std::string_view bytes, std::string_view charset) {
  const Text name(charset.begin(), charset.end());
  demand(VCardUtilities::stringFromData(bytes, name).has_value());
  demand(VCardUtilities::stringFromData(bytes, std::nullopt).has_value());

  const std::string cleaned = VCardUtilities::cleanUTF8(bytes);
  demand(cleaned.size() <= bytes.size() && VCardUtilities::cleanUTF8(cleaned) == cleaned);
  demand(cardwright::utf8FromText(cardwright::textFromUtf8(cleaned)) == cleaned);

  cardwright::DecodingReport report;
  demand(cardwright::decodeFile(bytes, std::nullopt, &report).has_value());
  demand(report.droppedBytes <= bytes.size() && cardwright::isKnownEncoding(report.encoding));
  const auto told = cardwright::decodeFile(bytes, charset, &report);
  demand(told.has_value() == cardwright::isKnownEncoding(charset));
  demand(report.droppedBytes <= bytes.size());

  const std::string marked = "\xEF\xBB\xBF" + cleaned;
  demand(cardwright::decodeFile(marked, std::nullopt, &report) ==
         cardwright::textFromUtf8(cleaned));
  demand(report.droppedBytes == 0 && report.tornCharacters == 0);
}

std::string plainBreaks(const Text& text) {
  std::string plain;
  for (const char byte : cardwright::utf8FromText(text)) {
    if (byte == '\n' && plain.ends_with('\r')) {
      plain.back() = '\n';
    } else {
      plain.push_back(byte);
    }
  }
  for (char& byte : plain) {
    byte = byte == '\r' ? '\n' : byte;
  }
  return plain;
}

void tryText(TextView text, TextView charset) {
  for (const bool quotedPrintable : {false, true}) {
    demand(VCardUtils::decodeTextValue(text, quotedPrintable, std::nullopt).has_value());
    demand(VCardUtils::decodeTextValue(text, quotedPrintable, charset).has_value());
    const auto list = VCardUtils::decodeTextMultiValue(text, quotedPrintable, charset);
    demand(list.has_value() && !list->empty());
  }
  demand(VCardUtilities::stringFromQuotedPrintableStringWithCharset(text, charset).has_value());
  demand(VCardUtils::normalizedDecodedString(text, text).has_value());

  const Text valid = VCardUtilities::validXMLString(text);
  demand(VCardUtilities::validXMLString(valid) == valid);
  Text written;
  VCardUtils::writeTextValue(text, written, true);
  demand(written.find_first_of(u"\r\n") == Text::npos);
  const auto read = VCardUtils::decodeTextValue(written, false, std::nullopt);
  demand(cardwright::utf8FromText(*read) == plainBreaks(valid));

  const Text encoded = VCardUtils::encodeParameterTextValue(text);
  demand(encoded.find_first_of(u"\n\"") == Text::npos);
  demand(VCardUtils::decodeParameterTextValue(encoded) == text);

  const auto separator =
      VCardUtilities::rangeOfUnescapedDelimiter(written, u';', {0, written.size()});
  demand(separator.length == 0); // Every one was escaped.
  demand(VCardUtilities::isEqualToCaseInsensitiveString(text, text));
  demand(VCardUtilities::firstCharacter(text) == 0 ||
         VCardUtilities::firstCharacter(text) == text.front());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) {
    return 0;
  }
  const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
  const std::string_view charset = kCharsets[(data[0] >> 1U) % std::size(kCharsets)];
  tryBytes(bytes, charset);
  const bool isUtf16 = (data[0] & 1U) != 0;
  tryText(isUtf16 ? textFromPairs(bytes) : cardwright::textFromUtf8(bytes),
          Text(charset.begin(), charset.end()));
  return 0;
}
