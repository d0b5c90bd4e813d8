// The line scanner and its look-ahead.

#include "cardwright/text_scanner.h"
#include "cardwright/vcard_utils.h"
#include "conformance/operation_table.h"

namespace cardwright::conformance {
namespace {

template <typename Scanned>
[[nodiscard]] Json scanned(bool ok, const Scanned& string, const TextScanner& scanner) {
  return objectToJson("ok", ok, "string", ok ? toJson(TextView(string)) : Json(), "location",
                      scanner.scanLocation());
}

Json foldedLine(TextView text, std::size_t location) {
  TextScanner scanner(text);
  scanner.setScanLocation(location);
  Text line;
  const bool ok = scanner.scanFoldedLineIntoString(&line);
  return scanned(ok, line, scanner);
}

Json foldedLines(TextView text) {
  TextScanner scanner(text);
  TextList lines;
  Text line;
  while (scanner.scanFoldedLineIntoString(&line)) {
    lines.push_back(line);
  }
  return objectToJson("lines", lines, "location", scanner.scanLocation());
}

Json token(const Arguments& arguments) {
  arguments.expectCount(3, 4);
  const Text text = arguments.get<Text>(0);
  TextScanner scanner{TextView(text)};
  scanner.setScanLocation(arguments.get<std::size_t>(1));
  Text string;
  const bool ok = scanner.scanQuotedStringOrUptoDelimiters(arguments.get<Text>(2), &string,
                                                           arguments.getOr(3, false));
  return scanned(ok, string, scanner);
}

Json addressBookServerProperty(TextView text, std::size_t location) {
  std::size_t start = 0;
  const bool result = VCardUtils::lineBeginsWithAddressBookServerPropertyAtLocation(
      TextScanner(text), location, &start);
  return objectToJson("result", result, "propertyStart", result ? toJson(start) : Json());
}

bool isBoundary(TextView text, std::size_t location) {
  return VCardUtils::nextLineIsVCardBoundaryAtLocation(TextScanner(text), location,
                                                       VCardUtils::lineTerminatorCharacterSet());
}

bool isRecoverableProperty(TextView text, std::size_t location) {
  return VCardUtils::nextLineLooksLikeRecoverableStandalonePropertyAtLocation(
      TextScanner(text), location, VCardUtils::lineTerminatorCharacterSet(),
      VCardUtils::headerWhitespaceCharacterSet());
}

Json recoverableNames() {
  return toJson(VCardUtils::recoverableStandalonePropertyNames());
}

const OperationFamily kScanner([](OperationTable& table) {
  table.add("TextScanner::scanFoldedLineIntoString", foldedLine);
  table.add("TextScanner::scanFoldedLineIntoString/all", foldedLines);
  table.add("TextScanner::scanQuotedStringOrUptoDelimiters", token);
  table.add("VCardUtils::lineIsAddressBookServerProperty",
            VCardUtils::lineIsAddressBookServerProperty);
  table.add("VCardUtils::lineBeginsWithAddressBookServerPropertyAtLocation",
            addressBookServerProperty);
  table.add("VCardUtils::nextLineIsVCardBoundaryAtLocation", isBoundary);
  table.add("VCardUtils::nextLineLooksLikeRecoverableStandalonePropertyAtLocation",
            isRecoverableProperty);
  table.add("VCardUtils::recoverableStandalonePropertyNames", recoverableNames);
});

} // namespace
} // namespace cardwright::conformance
