#include "base/calendar.h"

#include "cardwright/date_components.h"

#include <limits>

namespace cardwright {

namespace {

// Days are counted from 1 January 1970. Years run from March to February in between, so that a
// leap day is the last day of its year and the months before it have fixed lengths.

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::int64_t kFirstGregorianYear = 1582;
constexpr std::int64_t kFirstGregorianDay = -141427; // 15 October 1582
constexpr std::int64_t kGregorianMarchOfYear0 = -719468;
constexpr std::int64_t kJulianMarchOfYear0 = -719470;
constexpr std::int64_t kDaysIn4JulianYears = 1461;
constexpr std::int64_t kDaysIn400GregorianYears = 146097;

enum class Calendar : std::uint8_t { kJulian, kGregorian };

template <typename Integer>
constexpr Integer floorDivide(Integer number, Integer divisor) noexcept {
  const Integer quotient = number / divisor;
  return quotient - (number % divisor < 0 ? 1 : 0);
}

/// What floorDivide() leaves over: never negative, and within reach where the multiple is not.
template <typename Integer>
constexpr Integer floorRemainder(Integer number, Integer divisor) noexcept {
  const Integer remainder = number % divisor;
  return remainder < 0 ? remainder + divisor : remainder;
}

/// Days from 1 March on to the first of a month.
constexpr int daysBeforeMonth(int monthsSinceMarch) noexcept {
  return (153 * monthsSinceMarch + 2) / 5;
}

template <typename Integer>
constexpr Integer firstDayOfMonth(Integer year, int month, Calendar calendar) noexcept {
  const Integer marchYear = month > 2 ? year : year - 1;
  const Integer days =
      365 * marchYear + floorDivide<Integer>(marchYear, 4) + daysBeforeMonth((month + 9) % 12);
  if (calendar == Calendar::kJulian) {
    return days + kJulianMarchOfYear0;
  }
  return days - floorDivide<Integer>(marchYear, 100) + floorDivide<Integer>(marchYear, 400) +
         kGregorianMarchOfYear0;
}

/// The day that year, month and day of the month name. A year decides for one of the calendars; a
/// day that this puts on the other's side of the change is counted again in the other.
template <typename Integer>
constexpr Integer dayFromFields(Integer year, Integer month, Integer day) noexcept {
  const Integer monthsSinceJanuary = month - 1;
  const auto monthOfYear = static_cast<int>(floorRemainder<Integer>(monthsSinceJanuary, 12)) + 1;
  const Integer yearOfMonth = year + floorDivide<Integer>(monthsSinceJanuary, 12);

  const bool isGregorian = yearOfMonth >= kFirstGregorianYear;
  const auto dayIn = [&](bool gregorian) {
    return firstDayOfMonth(yearOfMonth, monthOfYear,
                           gregorian ? Calendar::kGregorian : Calendar::kJulian) +
           (day - 1);
  };
  const Integer found = dayIn(isGregorian);
  return isGregorian == (found >= kFirstGregorianDay) ? found : dayIn(!isGregorian);
}

/// The components as whole numbers, those that are not set as the first of their kind.
struct Fields {
  explicit Fields(const DateComponents& components) noexcept
      : year(components.year.value_or(1)),
        month(components.month.value_or(1)),
        day(components.day.value_or(1)),
        hour(components.hour.value_or(0)),
        minute(components.minute.value_or(0)),
        second(components.second.value_or(0)),
        secondsFromUtc(components.timeZone ? components.timeZone->secondsFromUtc() : 0) {}

  /// Whether sums and products of them stay within 64 bits.
  [[nodiscard]] bool areSmall() const noexcept {
    constexpr auto isSmall = [](std::int64_t field) {
      return field >= std::numeric_limits<std::int32_t>::min() &&
             field <= std::numeric_limits<std::int32_t>::max();
    };
    return isSmall(year) && isSmall(month) && isSmall(day) && isSmall(hour) && isSmall(minute) &&
           isSmall(second);
  }

  template <typename Integer>
  [[nodiscard]] Integer instant() const noexcept {
    return dayFromFields<Integer>(year, month, day) * kSecondsPerDay +
           static_cast<Integer>(hour) * 3600 + static_cast<Integer>(minute) * 60 + second -
           secondsFromUtc;
  }

  std::int64_t year;
  std::int64_t month;
  std::int64_t day;
  std::int64_t hour;
  std::int64_t minute;
  std::int64_t second;
  std::int32_t secondsFromUtc;
};

/// Holds the instant of any fields, however far out of range.
__extension__ using Wide = __int128;

constexpr std::int64_t saturated(Wide number) noexcept {
  using Limits = std::numeric_limits<std::int64_t>;
  if (number < Limits::min()) {
    return Limits::min();
  }
  return number > Limits::max() ? Limits::max() : static_cast<std::int64_t>(number);
}

/// Sets year, month and day of the month.
void setDate(WallClock& clock, std::int64_t day) noexcept {
  std::int64_t dayOfYear = 0;
  if (day >= kFirstGregorianDay) {
    const std::int64_t days = day - kGregorianMarchOfYear0;
    const std::int64_t cycle = floorDivide(days, kDaysIn400GregorianYears);
    const std::int64_t dayOfCycle = floorRemainder(days, kDaysIn400GregorianYears);
    const std::int64_t year =
        (dayOfCycle - dayOfCycle / 1460 + dayOfCycle / 36524 - dayOfCycle / 146096) / 365;
    dayOfYear = dayOfCycle - (365 * year + year / 4 - year / 100);
    clock.year = cycle * 400 + year;
  } else {
    const std::int64_t days = day - kJulianMarchOfYear0;
    const std::int64_t cycle = floorDivide(days, kDaysIn4JulianYears);
    const std::int64_t dayOfCycle = floorRemainder(days, kDaysIn4JulianYears);
    const std::int64_t year = (dayOfCycle - dayOfCycle / 1460) / 365;
    dayOfYear = dayOfCycle - 365 * year;
    clock.year = cycle * 4 + year;
  }
  const auto monthsSinceMarch = static_cast<int>((5 * dayOfYear + 2) / 153);
  clock.day = static_cast<int>(dayOfYear) - daysBeforeMonth(monthsSinceMarch) + 1;
  clock.month = monthsSinceMarch < 10 ? monthsSinceMarch + 3 : monthsSinceMarch - 9;
  if (clock.month <= 2) {
    ++clock.year;
  }
}

} // namespace

WallClock wallClockAt(std::chrono::sys_seconds date, std::int32_t secondsFromUtc) noexcept {
  const std::int64_t instant = date.time_since_epoch().count();
  // The offset goes to the time of day: instant and offset may not fit together.
  const std::int64_t time = floorRemainder(instant, kSecondsPerDay) + secondsFromUtc;
  const std::int64_t day = floorDivide(instant, kSecondsPerDay) + floorDivide(time, kSecondsPerDay);
  const auto secondOfDay = static_cast<int>(floorRemainder(time, kSecondsPerDay));

  WallClock clock{};
  setDate(clock, day);
  clock.hour = secondOfDay / 3600;
  clock.minute = secondOfDay / 60 % 60;
  clock.second = secondOfDay % 60;
  return clock;
}

std::chrono::sys_seconds dateFromComponents(const DateComponents& components) noexcept {
  const Fields fields(components);
  return std::chrono::sys_seconds(std::chrono::seconds(
      fields.areSmall() ? fields.instant<std::int64_t>() : saturated(fields.instant<Wide>())));
}

DateComponents componentsFromDate(std::chrono::sys_seconds date, TimeZone zone) noexcept {
  const WallClock clock = wallClockAt(date, zone.secondsFromUtc());
  DateComponents components;
  components.year = clock.year;
  components.month = clock.month;
  components.day = clock.day;
  components.hour = clock.hour;
  components.minute = clock.minute;
  components.second = clock.second;
  components.timeZone = zone;
  return components;
}

} // namespace cardwright
