#include "values/source_text.h"

#include "base/ascii.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_utc_offset_value.h"

#include <chrono>
#include <cstddef>

namespace cardwright {

namespace {

/// Takes exactly so many digits from the front; -1 where there are fewer.
int takeDigits(TextView& rest, std::size_t count) noexcept {
  if (rest.size() < count) {
    return -1;
  }
  int number = 0;
  for (std::size_t at = 0; at < count; ++at) {
    if (!isAsciiDigit(rest[at])) {
      return -1;
    }
    number = number * 10 + (rest[at] - u'0');
  }
  rest.remove_prefix(count);
  return number;
}

bool take(TextView& rest, char16_t unit) noexcept {
  const bool isThere = rest.starts_with(unit);
  rest.remove_prefix(isThere ? 1 : 0);
  return isThere;
}

constexpr bool isBetween(int number, int first, int last) noexcept {
  return number >= first && number <= last;
}

struct Offset {
  int hours = -1;
  int minutes = -1;
};

/// Takes ±hh:mm or ±hhmm; one of the two is -1 where neither is there.
Offset takeOffset(TextView& rest) noexcept {
  Offset offset;
  if (take(rest, u'+') || take(rest, u'-')) {
    offset.hours = takeDigits(rest, 2);
    take(rest, u':');
    offset.minutes = takeDigits(rest, 2);
  }
  return offset;
}

bool takeDate(TextView& text) noexcept {
  const int year = takeDigits(text, 4);
  const bool hasHyphen = take(text, u'-');
  const int month = takeDigits(text, 2);
  if (!isBetween(year, 1583, 9999) || !isBetween(month, 1, 12) || take(text, u'-') != hasHyphen) {
    return false;
  }
  const int day = takeDigits(text, 2);
  return isBetween(day, 1, 28) ||
         (day > 28 && std::chrono::year_month_day(std::chrono::year(year),
                                                  std::chrono::month(static_cast<unsigned>(month)),
                                                  std::chrono::day(static_cast<unsigned>(day)))
                          .ok());
}

bool isOrdinaryTime(TextView text) noexcept {
  const bool hasHour = isBetween(takeDigits(text, 2), 0, 23);
  const bool hasColon = take(text, u':');
  const bool hasMinute = isBetween(takeDigits(text, 2), 0, 59);
  const bool isTime =
      hasHour && hasMinute && take(text, u':') == hasColon && isBetween(takeDigits(text, 2), 0, 59);
  if (!isTime || text.empty()) {
    return isTime;
  }
  if (take(text, u'Z')) {
    return text.empty();
  }
  // An offset of nothing is the universal zone in some versions.
  const auto [hours, minutes] = takeOffset(text);
  return text.empty() && isBetween(hours, 0, 17) && isBetween(minutes, 0, 59) &&
         hours + minutes > 0;
}

/// Takes a number of at most so many digits before and behind the point.
bool takeDegrees(TextView& rest) noexcept {
  constexpr std::size_t kBefore = 3;
  constexpr std::size_t kBehind = 6;
  if (!take(rest, u'-')) {
    take(rest, u'+');
  }
  std::size_t before = 0;
  for (; !rest.empty() && isAsciiDigit(rest.front()); ++before) {
    rest.remove_prefix(1);
  }
  std::size_t behind = 0;
  if (before != 0 && take(rest, u'.')) {
    for (; !rest.empty() && isAsciiDigit(rest.front()); ++behind) {
      rest.remove_prefix(1);
    }
  }
  return before != 0 && before <= kBefore && behind <= kBehind;
}

} // namespace

std::optional<TextView> SourceText::of(const VCardValue& value) noexcept {
  if (const auto* date = dynamic_cast<const VCardDateTimeValue*>(&value)) {
    return date->m_source.optionalView();
  }
  if (const auto* offset = dynamic_cast<const VCardUTCOffsetValue*>(&value)) {
    return offset->m_source.optionalView();
  }
  if (const auto* position = dynamic_cast<const VCardGeoValue*>(&value)) {
    return position->m_source.optionalView();
  }
  return std::nullopt;
}

bool isOrdinaryDate(TextView text) noexcept {
  return takeDate(text) && text.empty();
}

bool isOrdinaryDateTime(TextView text) noexcept {
  return takeDate(text) && take(text, u'T') && isOrdinaryTime(text);
}

bool isOrdinaryOffset(TextView text) noexcept {
  const auto [hours, minutes] = takeOffset(text);
  return text.empty() && hours >= 0 && isBetween(minutes, 0, 59);
}

bool isOrdinaryPosition(TextView text) noexcept {
  if (!takeDegrees(text) || text.empty() || (text.front() != u';' && text.front() != u',')) {
    return false;
  }
  text.remove_prefix(1);
  return takeDegrees(text) && text.empty();
}

} // namespace cardwright
