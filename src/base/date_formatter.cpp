#include "cardwright/date_formatter.h"

#include "base/ascii.h"
#include "base/calendar.h"
#include "base/decimal.h"

#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <limits>
#include <memory>

namespace cardwright {

namespace {

/// The locale whose digits we write ourselves.
constexpr std::string_view kPosixLocale = "en_US_POSIX";

/// Writes "+hhmm" or "+hh:mm", and the seconds when there are any.
void appendOffset(Text& output, std::int32_t secondsFromUtc, bool extended) {
  const auto seconds =
      static_cast<std::uint32_t>(secondsFromUtc < 0 ? -secondsFromUtc : secondsFromUtc);
  output += secondsFromUtc < 0 ? u'-' : u'+';
  appendDecimal(output, seconds / 3600, 2);
  if (extended) {
    output += u':';
  }
  appendDecimal(output, seconds / 60 % 60, 2);
  if (seconds % 60 != 0) {
    if (extended) {
      output += u':';
    }
    appendDecimal(output, seconds % 60, 2);
  }
}

/// The number of a field that is written with at least `count` digits.
void appendNumber(Text& output, int number, std::size_t count) {
  appendDecimal(output, static_cast<std::uint64_t>(number), count);
}

/// Writes one field of a pattern; false for a field that only ICU knows.
bool appendField(Text& output, char16_t letter, std::size_t count, const WallClock& clock,
                 std::int32_t secondsFromUtc) {
  switch (letter) {
  case u'y': // the year of its era: 1 BC is year 0
    if (count != 4) {
      return false;
    }
    appendDecimal(output, static_cast<std::uint64_t>(clock.year > 0 ? clock.year : 1 - clock.year),
                  count);
    return true;
  case u'Z':
    if (count == 5 && secondsFromUtc == 0) {
      output += u'Z';
      return true;
    }
    if (count == 1 || count == 5) {
      appendOffset(output, secondsFromUtc, count == 5);
      return true;
    }
    return false;
  default:
    break;
  }
  if (count != 2) {
    return false;
  }
  switch (letter) {
  case u'M':
    appendNumber(output, clock.month, count);
    return true;
  case u'd':
    appendNumber(output, clock.day, count);
    return true;
  case u'H':
    appendNumber(output, clock.hour, count);
    return true;
  case u'm':
    appendNumber(output, clock.minute, count);
    return true;
  case u's':
    appendNumber(output, clock.second, count);
    return true;
  default:
    return false;
  }
}

/// Writes an instant by a pattern of the fields that dates of vCards have; false, with part of it
/// written, for a pattern that holds others.
bool appendByPattern(Text& output, TextView pattern, std::chrono::sys_seconds date,
                     std::int32_t secondsFromUtc) {
  const WallClock clock = wallClockAt(date, secondsFromUtc);
  bool isQuoted = false;
  for (std::size_t at = 0; at < pattern.size();) {
    const char16_t unit = pattern[at];
    if (unit == u'\'') {
      if (at + 1 < pattern.size() && pattern[at + 1] == u'\'') {
        output += unit;
        ++at;
      } else {
        isQuoted = !isQuoted;
      }
      ++at;
    } else if (isQuoted || !isAsciiLetter(unit)) {
      output += unit;
      ++at;
    } else {
      std::size_t end = at + 1;
      while (end < pattern.size() && pattern[end] == unit) {
        ++end;
      }
      if (!appendField(output, unit, end - at, clock, secondsFromUtc)) {
        return false;
      }
      at = end;
    }
  }
  return true;
}

std::unique_ptr<icu::TimeZone> icuZone(std::optional<TimeZone> zone) {
  if (!zone || zone->isUniversal()) {
    return std::unique_ptr<icu::TimeZone>(icu::TimeZone::createTimeZone("UTC"));
  }
  Text id = u"GMT";
  appendOffset(id, zone->secondsFromUtc(), true);
  return std::unique_ptr<icu::TimeZone>(icu::TimeZone::createTimeZone(
      icu::UnicodeString(id.data(), static_cast<int32_t>(id.size()))));
}

/// Writes by ICU, which knows all fields and languages; nothing for a pattern that it refuses.
void appendByIcu(Text& output, const DateFormatter& formatter, std::chrono::sys_seconds date) {
  const TextView pattern = formatter.dateFormat();
  if (pattern.size() > static_cast<std::size_t>(std::numeric_limits<int32_t>::max())) {
    return;
  }
  UErrorCode status = U_ZERO_ERROR;
  const icu::Locale locale =
      formatter.locale() ? icu::Locale(formatter.locale()->c_str()) : icu::Locale::getDefault();
  icu::SimpleDateFormat icuFormatter(
      icu::UnicodeString(pattern.data(), static_cast<int32_t>(pattern.size())), locale, status);
  auto calendar =
      std::make_unique<icu::GregorianCalendar>(*icuZone(formatter.timeZone()), locale, status);
  if (U_FAILURE(status)) {
    return;
  }
  icuFormatter.adoptCalendar(calendar.release());
  icu::UnicodeString written;
  const UDate instant = static_cast<double>(date.time_since_epoch().count()) * 1000.0;
  icuFormatter.format(instant, written, nullptr, status);
  if (U_SUCCESS(status)) {
    output.append(written.getBuffer(), static_cast<std::size_t>(written.length()));
  }
}

} // namespace

void DateFormatter::appendDate(Text& output, std::chrono::sys_seconds date) const {
  const std::size_t begin = output.size();
  if (m_locale == kPosixLocale &&
      appendByPattern(output, m_dateFormat, date, m_timeZone ? m_timeZone->secondsFromUtc() : 0)) {
    return;
  }
  output.resize(begin);
  appendByIcu(output, *this, date);
}

Text DateFormatter::stringFromDate(std::chrono::sys_seconds date) const {
  Text text;
  appendDate(text, date);
  return text;
}

} // namespace cardwright
