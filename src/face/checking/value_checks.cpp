#include "base/ascii.h"
#include "base/case.h"
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

/// What stands behind the colon that ends the header.
TextView rawValueOf(TextView line) noexcept {
  bool inQuotes = false;
  for (std::size_t at = 0; at < line.size(); ++at) {
    inQuotes = inQuotes != (line[at] == u'"');
    if (line[at] == u':' && !inQuotes) {
      return line.substr(at + 1);
    }
  }
  return {};
}

bool isQuotedPrintable(TextView text) noexcept {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != u'=') {
      continue;
    }
    if (at + 2 >= text.size() || !isHexadecimal(text[at + 1]) || !isHexadecimal(text[at + 2])) {
      return false;
    }
    at += 2;
  }
  return true;
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
    finder.add(Check::badBase64, line.offset, property.name());
  }
  if (encodes(property, cVCardParameter_ENCODING_QUOTED_PRINTABLE) &&
      !isQuotedPrintable(rawValueOf(line.line))) {
    finder.add(Check::badQuotedPrintable, line.offset, property.name());
  }
}

} // namespace

void checkValue(const CheckedLine& line, VersionCode version, CheckFinder& finder) {
  const VCardProperty& property = *line.property;
  const VCardValue* const value = property.value().get();
  if (const auto* date = dynamic_cast<const VCardDateTimeValue*>(value)) {
    if (SourceText::of(*date) && !isUnderstood(*date)) {
      finder.add(Check::badDate, line.offset, property.name());
    }
  } else if (const auto* offset = dynamic_cast<const VCardUTCOffsetValue*>(value)) {
    DateFormatter formatter("en_US_POSIX");
    if (sourceToKeep(*offset, version, formatter)) {
      finder.add(Check::badOffset, line.offset, property.name());
    }
  } else if (const auto* position = dynamic_cast<const VCardGeoValue*>(value)) {
    const auto source = SourceText::of(*position);
    if (source && decimalPair(*source, u";,").first.empty()) {
      finder.add(Check::badPosition, line.offset, property.name());
    }
  } else if (property.name() == cVCardProperty_GEO &&
             dynamic_cast<const VCardURIValue*>(value) != nullptr &&
             !hasScheme(property.textValue().value_or(TextView()))) {
    finder.add(Check::badPosition, line.offset, property.name());
  }
  checkEncoded(line, finder);
}

} // namespace cardwright
