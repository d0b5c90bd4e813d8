#include "base/case.h"
#include "base/whitespace.h"
#include "cardwright/date_formatter.h"
#include "cardwright/text_scanner.h"
#include "support/round_trip.h"
#include "support/without_piece.h"

#include <algorithm>

namespace cardwright {

namespace {

bool holdsLineBreak(TextView text) {
  return text.find_first_of(u"\r\n") != TextView::npos;
}

bool needsQuotes(TextView token, TextView delimiters) {
  return token.find_first_of(delimiters) != TextView::npos ||
         (!token.empty() && (isWhitespace(token.front()) || token.front() == u'"'));
}

std::optional<Unwritable> whyUnwritable(const VCardParameter& parameter, VersionCode version) {
  const TextView name = parameter.name();
  if (needsQuotes(name, u"=;:")) {
    return Unwritable::nameInQuotes;
  }
  const bool namesAClass =
      equalIgnoringCase(name, u"VALUE") || equalIgnoringCase(name, u"ENCODING");
  const bool isBare = version == 2 && equalIgnoringCase(name, u"TYPE");
  bool holdsCarriageReturn = holdsLineBreak(name);
  for (const Text& value : parameter.values()) {
    // A line feed is written as "^n", a carriage return as itself.
    holdsCarriageReturn = holdsCarriageReturn || value.find(u'\r') != Text::npos;
    if (namesAClass && !equalIgnoringCase(upperCased(value), value)) {
      return Unwritable::caseWithAnotherMeaning;
    }
    if (isBare && value.find(u'=') != Text::npos && value.find_first_of(u":;,") == Text::npos) {
      return Unwritable::typeWithEqualsSign;
    }
  }
  return holdsCarriageReturn ? std::optional(Unwritable::lineBreakInHeader) : std::nullopt;
}

std::optional<Unwritable> whyUnreadable(const Text& physicalLines) {
  TextView rest = physicalLines;
  while (rest.ends_with(u"\r\n")) {
    rest.remove_suffix(2);
  }
  const Text line = withoutPiece(rest, u"\r\n ");

  // What follows counts too: a colon on the next line can make a fold look like a property.
  const Text lines = physicalLines + u"N:\r\n";
  TextScanner scanner{TextView(lines)};
  Text scanned;
  if (!scanner.scanFoldedLineIntoString(&scanned) || scanned != line ||
      scanner.scanLocation() != physicalLines.size()) {
    return Unwritable::tornLine;
  }
  if (VCard::normalizedStringByDecodingNumericEntitiesFromString(TextView(line)) != line) {
    return Unwritable::reference;
  }
  if (VCard::candidatePropertyLinesFromLine(TextView(line)) != TextList{line}) {
    return Unwritable::mergedLine;
  }
  if (equalIgnoringCase(trimWhitespace(line), u"END:VCARD")) {
    return Unwritable::frameLine;
  }
  return std::nullopt;
}

} // namespace

std::optional<Unwritable> whyUnwritable(const VCardProperty& property, VersionCode version) {
  Text token(property.name());
  if (property.group()) {
    token = Text(*property.group()) + u"." + token;
  }
  if (needsQuotes(token, u";:")) {
    return Unwritable::nameInQuotes;
  }
  if (holdsLineBreak(token)) {
    return Unwritable::lineBreakInHeader;
  }
  for (const auto& entry : property.parameterDict().value_or(VCardParameterDict{})) {
    if (const auto reason = whyUnwritable(*entry.second, version)) {
      return reason;
    }
  }
  DateFormatter formatter("en_US_POSIX");
  Text lines;
  property.generate(lines, version, &formatter);
  return whyUnreadable(lines);
}

std::size_t removeUnwritable(VCard& card, VersionCode version) {
  std::size_t removed = 0;
  for (const auto& [key, list] : card.propertyDict()) {
    removed += erase_if(*list, [version](const std::shared_ptr<VCardProperty>& property) {
      return whyUnwritable(*property, version).has_value();
    });
    if (list->empty()) {
      card.removePropertiesWithName(key);
    }
  }
  return removed;
}

} // namespace cardwright
