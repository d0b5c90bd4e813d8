#include "base/ascii.h"
#include "base/case.h"
#include "base/whitespace.h"
#include "cardwright/date_formatter.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "cardwright/vocabulary.h"
#include "face/checking/checks.h"
#include "face/conversion/base64.h"
#include "face/decimal_pair.h"
#include "face/writing/kept_source.h"
#include "reader/content_line.h"
#include "values/source_text.h"

#include <algorithm>

namespace cardwright {

namespace {

bool isBetween(const std::optional<std::int64_t>& field, std::int64_t first, std::int64_t last) {
  return !field || (*field >= first && *field <= last);
}

std::int64_t daysIn(const DateComponents& date) {
  constexpr std::int64_t kDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const std::int64_t year = date.year.value_or(2000);
  const bool isLeapYear = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  const std::int64_t days = kDays[static_cast<std::size_t>(date.month.value_or(1) - 1)];
  return days == 29 && !isLeapYear ? 28 : days;
}

bool isUnderstood(const VCardDateTimeValue& value) {
  const DateComponents& date = value.comps();
  const bool isEmpty =
      !date.year && !date.month && !date.day && !date.hour && !date.minute && !date.second;
  return !isEmpty && isBetween(date.month, 1, 12) && isBetween(date.day, 1, daysIn(date)) &&
         isBetween(date.hour, 0, 23) && isBetween(date.minute, 0, 59) &&
         isBetween(date.second, 0, 60);
}

bool encodes(const VCardProperty& property, TextView encoding) {
  const auto stated = property.valueOfParameterWithName(cVCardParameter_ENCODING);
  return stated && equalIgnoringCase(*stated, encoding);
}

bool isHexadecimal(char16_t unit) noexcept {
  return isAsciiDigit(unit) || (asciiUpper(unit) >= u'A' && asciiUpper(unit) <= u'F');
}

/// What is left of a text from the first "=" on that begins no quoted-printable sign.
TextView fromBrokenSign(TextView text) noexcept {
  for (std::size_t at = text.find(u'='); at != TextView::npos; at = text.find(u'=', at)) {
    if (at + 2 >= text.size() || !isHexadecimal(text[at + 1]) || !isHexadecimal(text[at + 2])) {
      return text.substr(at);
    }
    at += 3;
  }
  return {};
}

/// What is left of a damaged base64 text from the first unit on that is no digit of it, or else its
/// last unit: then it is too short.
TextView fromBrokenDigit(TextView text) {
  constexpr TextView kMark = u";base64,";
  const std::size_t mark = text.find(kMark);
  for (std::size_t at = mark == TextView::npos ? 0 : mark + kMark.size(); at < text.size(); ++at) {
    const bool isLineBreak = text[at] == u'\\' && at + 1 < text.size();
    const bool isPadding =
        text[at] == u'=' && text.find_first_not_of(u"= \t", at) == TextView::npos;
    if (isLineBreak) {
      ++at;
    } else if (!isPadding && !isWhitespaceOrNewline(text[at]) && !isBase64Digit(text[at])) {
      return text.substr(at);
    }
  }
  return text.substr(text.size() - std::min<std::size_t>(text.size(), 1));
}

/// The value as it stands in the line, without blanks around it.
TextView rawValueOf(const CheckedLine& line) {
  return trimWhitespaceAndNewlines(partsOfContentLine(line.line).value);
}

bool isSoundData(TextView uri) {
  constexpr TextView kMark = u";base64,";
  const std::size_t mark = uri.find(kMark);
  return !uri.starts_with(u"data:") || mark == TextView::npos ||
         uri.find(u'%', mark) != TextView::npos ||
         soundBase64(uri.substr(mark + kMark.size())).has_value();
}

/// Whether a text has the scheme that makes it a URI.
bool hasScheme(TextView uri) noexcept {
  const std::size_t colon = uri.find(u':');
  return colon != TextView::npos && colon > 0 &&
         std::all_of(uri.begin(), uri.begin() + static_cast<std::ptrdiff_t>(colon),
                     [](char16_t unit) {
                       return isAsciiLetter(unit) || isAsciiDigit(unit) || unit == u'+' ||
                              unit == u'-' || unit == u'.';
                     });
}

void checkEncoded(const CheckedLine& line, CheckFinder& finder) {
  const VCardProperty& property = *line.property;
  const TextView text = property.textValue().value_or(TextView());
  const bool isBinary = encodes(property, cVCardParameter_ENCODING_B) ||
                        encodes(property, cVCardParameter_ENCODING_BASE64);
  if ((isBinary && !text.starts_with(u"data:") && !soundBase64(text)) || !isSoundData(text)) {
    finder.add(Check::badBase64, line.placeOf(fromBrokenDigit(rawValueOf(line))), property.name());
  }
  if (encodes(property, cVCardParameter_ENCODING_QUOTED_PRINTABLE)) {
    const TextView broken = fromBrokenSign(partsOfContentLine(line.line).value);
    if (!broken.empty()) {
      finder.add(Check::badQuotedPrintable, line.placeOf(broken), property.name());
    }
  }
}

} // namespace

LinePlace placeOfValue(const CheckedLine& line) {
  const TextView value = rawValueOf(line);
  return line.placeOf(value.empty() ? line.line.substr(line.line.size()) : value);
}

void checkValue(const CheckedLine& line, VersionCode version, CheckFinder& finder) {
  const VCardProperty& property = *line.property;
  const VCardValue* const value = property.value().get();
  if (const auto* date = dynamic_cast<const VCardDateTimeValue*>(value)) {
    if (SourceText::of(*date) && !isUnderstood(*date)) {
      finder.add(Check::badDate, placeOfValue(line), property.name());
    }
  } else if (const auto* offset = dynamic_cast<const VCardUTCOffsetValue*>(value)) {
    DateFormatter formatter("en_US_POSIX");
    if (sourceToKeep(*offset, version, formatter)) {
      finder.add(Check::badOffset, placeOfValue(line), property.name());
    }
  } else if (const auto* position = dynamic_cast<const VCardGeoValue*>(value)) {
    const auto source = SourceText::of(*position);
    if (source && decimalPair(*source, u";,").first.empty()) {
      finder.add(Check::badPosition, placeOfValue(line), property.name());
    }
  } else if (property.name() == cVCardProperty_GEO &&
             dynamic_cast<const VCardURIValue*>(value) != nullptr &&
             !hasScheme(property.textValue().value_or(TextView()))) {
    finder.add(Check::badPosition, placeOfValue(line), property.name());
  }
  checkEncoded(line, finder);
}

} // namespace cardwright
