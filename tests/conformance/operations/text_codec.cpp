// Escaping, quoted-printable, character sets and the small helpers on texts.

#include "cardwright/vcard_utilities.h"
#include "cardwright/vcard_utils.h"
#include "conformance/operation_table.h"

#include <algorithm>

namespace cardwright::conformance {
namespace {

/// A dictionary that keeps the order of its entries.
struct OrderedDictionary {
  using mapped_type = Text;
  using Entries = std::vector<std::pair<Text, Text>>;

  [[nodiscard]] Entries::const_iterator begin() const { return entries.begin(); }
  [[nodiscard]] Entries::const_iterator end() const { return entries.end(); }
  [[nodiscard]] Entries::const_iterator find(TextView key) const {
    return std::find_if(begin(), end(), [&](const auto& entry) { return entry.first == key; });
  }

  Entries entries;
};

std::optional<Text> objectForKey(const OrderedDictionary::Entries& entries, TextView key) {
  const OrderedDictionary dictionary{entries};
  const Text* object = VCardUtilities::objectForCaseInsensitiveKey(dictionary, key);
  return object != nullptr ? std::optional(*object) : std::nullopt;
}

Json unescapedDelimiter(TextView text, char16_t delimiter, std::size_t location,
                        std::size_t length) {
  const TextRange range =
      VCardUtilities::rangeOfUnescapedDelimiter(text, delimiter, {location, length});
  return objectToJson("location", range.location, "length", range.length);
}

Text writtenTextValue(std::optional<TextView> text, bool escapeSemicolons) {
  Text output;
  VCardUtils::writeTextValue(text, output, escapeSemicolons);
  return output;
}

Text withoutSoftBreak(TextView line) {
  Text trimmed(line);
  VCardUtils::trimQuotedPrintableSoftBreakSuffixFromLine(trimmed,
                                                         VCardUtils::spaceAndTabCharacterSet());
  return trimmed;
}

Text withLineEnd(TextView text) {
  Text buffer;
  VCardUtilities::appendCRLF(buffer, text);
  return buffer;
}

Json cleanBytes(std::string_view bytes) {
  return bytesToJson(VCardUtilities::cleanUTF8(bytes));
}

bool isKnownCharset(std::optional<TextView> name) {
  return VCardUtilities::encodingForCharset(name) != 0;
}

std::int64_t firstUnit(TextView text) {
  return VCardUtilities::firstCharacter(text);
}

Json universalZone() {
  const TimeZone zone = VCardUtilities::universalTZ();
  return objectToJson("name", zone.name(), "seconds", zone.secondsFromUtc());
}

const OperationFamily kTextCodec([](OperationTable& table) {
  table.add("VCardUtils::decodeTextValue", VCardUtils::decodeTextValue);
  table.add("VCardUtils::decodeTextMultiValue", VCardUtils::decodeTextMultiValue);
  table.add("VCardUtils::writeTextValue", writtenTextValue);
  table.add("VCardUtils::decodeParameterTextValue", VCardUtils::decodeParameterTextValue);
  table.add("VCardUtils::encodeParameterTextValue", VCardUtils::encodeParameterTextValue);
  table.add("VCardUtils::normalizedDecodedString", VCardUtils::normalizedDecodedString);
  table.add("VCardUtils::trimQuotedPrintableSoftBreakSuffixFromLine", withoutSoftBreak);
  table.add("VCardUtilities::rangeOfUnescapedDelimiter", unescapedDelimiter);
  table.add("VCardUtilities::stringFromData", VCardUtilities::stringFromData);
  table.add("VCardUtilities::cleanUTF8", cleanBytes);
  table.add("VCardUtilities::stringFromQuotedPrintableStringWithCharset",
            VCardUtilities::stringFromQuotedPrintableStringWithCharset);
  table.add("VCardUtilities::encodingForCharset", isKnownCharset);
  table.add("VCardUtilities::firstCharacter", firstUnit);
  table.add("VCardUtilities::validXMLString", VCardUtilities::validXMLString);
  table.add("VCardUtilities::isEqualToCaseInsensitiveString",
            VCardUtilities::isEqualToCaseInsensitiveString);
  table.add("VCardUtilities::objectForCaseInsensitiveKey", objectForKey);
  table.add("VCardUtilities::appendCRLF", withLineEnd);
  table.add("VCardUtilities::universalTZ", universalZone);
});

} // namespace
} // namespace cardwright::conformance
