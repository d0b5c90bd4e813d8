#include "base/calendar.h"
#include "cardwright/date_components.h"
#include "support/components_printer.h"
#include "support/seed.h"

#include <gtest/gtest.h>
#include <unicode/gregocal.h>
#include <unicode/simpletz.h>

#include <array>
#include <limits>
#include <random>
#include <vector>

namespace cardwright {
namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

using Limits = std::numeric_limits<std::int64_t>;

std::int64_t instantOf(const DateComponents& components) {
  return dateFromComponents(components).time_since_epoch().count();
}

DateComponents day(std::int64_t year, std::int64_t month, std::int64_t dayOfMonth) {
  DateComponents components;
  components.year = year;
  components.month = month;
  components.day = dayOfMonth;
  return components;
}

DateComponents dayAndTime(std::int64_t year, std::int64_t month, std::int64_t dayOfMonth,
                          std::int64_t hour, std::int64_t minute, std::int64_t second) {
  DateComponents components = day(year, month, dayOfMonth);
  components.hour = hour;
  components.minute = minute;
  components.second = second;
  return components;
}

/// What ICU makes of the same fields. Seconds, since an instant of ours has no part of one.
std::int64_t icuInstantOf(const DateComponents& components, icu::GregorianCalendar& calendar) {
  const std::int32_t offset = components.timeZone ? components.timeZone->secondsFromUtc() : 0;
  calendar.adoptTimeZone(new icu::SimpleTimeZone(offset * 1000, "offset"));
  calendar.clear();
  calendar.set(UCAL_EXTENDED_YEAR, static_cast<int32_t>(components.year.value_or(1)));
  calendar.set(UCAL_MONTH, static_cast<int32_t>(components.month.value_or(1) - 1));
  calendar.set(UCAL_DATE, static_cast<int32_t>(components.day.value_or(1)));
  calendar.set(UCAL_HOUR_OF_DAY, static_cast<int32_t>(components.hour.value_or(0)));
  calendar.set(UCAL_MINUTE, static_cast<int32_t>(components.minute.value_or(0)));
  calendar.set(UCAL_SECOND, static_cast<int32_t>(components.second.value_or(0)));
  UErrorCode status = U_ZERO_ERROR;
  const double milliseconds = calendar.getTime(status);
  EXPECT_TRUE(U_SUCCESS(status));
  return static_cast<std::int64_t>(milliseconds / 1000.0);
}

DateComponents icuComponentsOf(std::int64_t instant, TimeZone zone,
                               icu::GregorianCalendar& calendar) {
  UErrorCode status = U_ZERO_ERROR;
  calendar.adoptTimeZone(new icu::SimpleTimeZone(zone.secondsFromUtc() * 1000, "offset"));
  calendar.setTime(static_cast<double>(instant) * 1000.0, status);
  DateComponents components;
  components.year = calendar.get(UCAL_EXTENDED_YEAR, status);
  components.month = calendar.get(UCAL_MONTH, status) + 1;
  components.day = calendar.get(UCAL_DATE, status);
  components.hour = calendar.get(UCAL_HOUR_OF_DAY, status);
  components.minute = calendar.get(UCAL_MINUTE, status);
  components.second = calendar.get(UCAL_SECOND, status);
  components.timeZone = zone;
  EXPECT_TRUE(U_SUCCESS(status));
  return components;
}

class Random {
 public:
  Random() : m_engine(testSeed()) {}
  std::int64_t between(std::int64_t first, std::int64_t last) {
    return std::uniform_int_distribution<std::int64_t>(first, last)(m_engine);
  }
  TimeZone zone() {
    return between(0, 4) == 0 ? TimeZone::universal()
                              : *TimeZone::withSecondsFromUtc(between(-64800, 64800));
  }

 private:
  std::mt19937_64 m_engine;
};

TEST(DateFromComponents, countsFromTheStartOf1970) {
  EXPECT_EQ(instantOf(day(1970, 1, 1)), 0);
  EXPECT_EQ(instantOf(dayAndTime(1970, 1, 2, 0, 0, 1)), 86401);
  EXPECT_EQ(instantOf(dayAndTime(1969, 12, 31, 23, 59, 59)), -1);
  EXPECT_EQ(instantOf(dayAndTime(2024, 3, 10, 2, 30, 0)), 1710037800);
}

TEST(DateFromComponents, takesFieldsThatAreNotSetAsTheFirstOfTheirKind) {
  EXPECT_EQ(instantOf(DateComponents{}), instantOf(dayAndTime(1, 1, 1, 0, 0, 0)));
  DateComponents monthOnly;
  monthOnly.month = 4;
  EXPECT_EQ(instantOf(monthOnly), instantOf(day(1, 4, 1)));
}

TEST(DateFromComponents, takesTheOffsetOfTheZoneAway) {
  DateComponents components = dayAndTime(2001, 2, 28, 0, 0, 0);
  const std::int64_t inUtc = instantOf(components);
  components.timeZone = TimeZone::universal();
  EXPECT_EQ(instantOf(components), inUtc);
  components.timeZone = TimeZone::withSecondsFromUtc(-29220);
  EXPECT_EQ(instantOf(components), inUtc + 29220);
}

TEST(DateFromComponents, rollsFieldsOutOfRangeOver) {
  EXPECT_EQ(instantOf(dayAndTime(2024, 12, 31, 24, 60, 60)),
            instantOf(dayAndTime(2025, 1, 1, 1, 1, 0)));
  EXPECT_EQ(instantOf(day(2000, 2, 30)), instantOf(day(2000, 3, 1)));
  EXPECT_EQ(instantOf(day(2024, 0, 0)), instantOf(day(2023, 11, 30)));
  EXPECT_EQ(instantOf(day(2000, 25, 1)), instantOf(day(2002, 1, 1)));
  EXPECT_EQ(instantOf(day(2000, -11, 1)), instantOf(day(1999, 1, 1)));
  EXPECT_EQ(instantOf(dayAndTime(2000, 1, 1, -1, 0, 0)),
            instantOf(dayAndTime(1999, 12, 31, 23, 0, 0)));
}

TEST(DateFromComponents, changesFromTheJulianToTheGregorianCalendarIn1582) {
  EXPECT_EQ(instantOf(day(1582, 10, 15)) - instantOf(day(1582, 10, 4)), 86400);
  EXPECT_EQ(instantOf(day(1582, 10, 14)), instantOf(day(1582, 10, 24)));
  EXPECT_EQ(instantOf(day(1500, 3, 1)) - instantOf(day(1500, 2, 29)), 86400);
  EXPECT_EQ(instantOf(day(1700, 2, 29)), instantOf(day(1700, 3, 1)));
  EXPECT_EQ(instantOf(day(1500, 1, 1)), -14830992000);
}

TEST(DateFromComponents, putsOneBcBeforeYearOne) {
  EXPECT_EQ(instantOf(day(1, 1, 1)) - instantOf(day(0, 1, 1)), 366 * 86400);
  EXPECT_EQ(instantOf(day(0, 1, 1)) - instantOf(day(-1, 1, 1)), 365 * 86400);
}

TEST(DateFromComponents, endsAtTheLastInstantThatFits) {
  EXPECT_EQ(instantOf(day(Limits::max(), 1, 1)), Limits::max());
  EXPECT_EQ(instantOf(day(Limits::min(), 1, 1)), Limits::min());
  EXPECT_EQ(instantOf(day(2000, Limits::max(), 1)), Limits::max());
  EXPECT_EQ(instantOf(day(2000, Limits::min(), 1)), Limits::min());
  EXPECT_EQ(instantOf(day(2000, 1, Limits::max())), Limits::max());
  EXPECT_EQ(instantOf(day(2000, 1, Limits::min())), Limits::min());
  const std::array<std::int64_t, 2> extremes = {Limits::min(), Limits::max()};
  for (const std::int64_t extreme : extremes) {
    EXPECT_EQ(instantOf(dayAndTime(extreme, extreme, extreme, extreme, extreme, extreme)), extreme);
    EXPECT_EQ(instantOf(dayAndTime(2000, 1, 1, extreme, 0, 0)), extreme);
    EXPECT_EQ(instantOf(dayAndTime(2000, 1, 1, 0, extreme, 0)), extreme);
  }
  EXPECT_EQ(instantOf(dayAndTime(1970, 1, 1, 0, 0, Limits::max())), Limits::max());
  EXPECT_EQ(instantOf(dayAndTime(1969, 12, 31, 0, 0, Limits::max())), Limits::max() - 86400);
}

TEST(DateFromComponents, addsHugeFieldsUpBeforeItLooksAtTheirSum) {
  constexpr std::int64_t kYears = 1'000'000'000'000;
  EXPECT_EQ(instantOf(day(2000 + kYears, 2 - 12 * kYears, 29)), instantOf(day(2000, 2, 29)));
  constexpr std::int64_t kDays = 100'000'000'000'000;
  EXPECT_EQ(instantOf(dayAndTime(1970, 1, 2 + kDays, -24 * kDays, 0, 0)), 86400);
}

TEST(DateFromComponents, agreesAcrossTheWidthsOfItsArithmetic) {
  constexpr std::int64_t kLast = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(instantOf(day(kLast + 1, 1, 1)) - instantOf(day(kLast, 1, 1)), 365 * 86400LL);
  EXPECT_EQ(instantOf(day(kLast + 2, 1, 1)) - instantOf(day(kLast + 1, 1, 1)), 366 * 86400LL);
  EXPECT_EQ(instantOf(day(2000, 1, kLast + 1)) - instantOf(day(2000, 1, kLast)), 86400);
  EXPECT_EQ(instantOf(day(-kLast - 1, 1, 1)) - instantOf(day(-kLast - 2, 1, 1)), 365 * 86400LL);
}

TEST(DateFromComponents, agreesWithIcuOnExistingDates) {
  Random random;
  UErrorCode status = U_ZERO_ERROR;
  icu::GregorianCalendar calendar(status);
  for (int i = 0; i < 100'000; ++i) {
    DateComponents components =
        dayAndTime(random.between(-5000, 10000), random.between(1, 12), random.between(1, 31),
                   random.between(0, 23), random.between(0, 59), random.between(0, 59));
    components.timeZone = random.zone();
    ASSERT_EQ(instantOf(components), icuInstantOf(components, calendar))
        << testing::PrintToString(components);
  }
}

TEST(DateFromComponents, agreesWithIcuOnFieldsThatRollOver) {
  Random random;
  UErrorCode status = U_ZERO_ERROR;
  icu::GregorianCalendar calendar(status);
  for (int i = 0; i < 100'000; ++i) {
    DateComponents components = dayAndTime(
        random.between(-5000, 10000), random.between(-500, 500), random.between(-5000, 5000),
        random.between(-500, 500), random.between(-5000, 5000), random.between(-100000, 100000));
    components.timeZone = random.zone();
    ASSERT_EQ(instantOf(components), icuInstantOf(components, calendar))
        << testing::PrintToString(components);
  }
}

TEST(DateFromComponents, agreesWithIcuOnEveryDayAroundTheChangeOfCalendars) {
  UErrorCode status = U_ZERO_ERROR;
  icu::GregorianCalendar calendar(status);
  for (const std::int64_t year : {1580, 1581, 1582, 1583, 1584}) {
    for (std::int64_t month = -24; month <= 36; ++month) {
      for (std::int64_t dayOfMonth = -40; dayOfMonth <= 70; ++dayOfMonth) {
        const DateComponents components = day(year, month, dayOfMonth);
        ASSERT_EQ(instantOf(components), icuInstantOf(components, calendar))
            << testing::PrintToString(components);
      }
    }
  }
}

TEST(DateFromComponents, agreesWithIcuOnTheEdgesOfMonthsOfEveryYear) {
  UErrorCode status = U_ZERO_ERROR;
  icu::GregorianCalendar calendar(status);
  for (std::int64_t year = -410; year <= 10010; ++year) {
    for (const std::int64_t month : {1, 2, 3, 12}) {
      for (const std::int64_t dayOfMonth : {0, 1, 28, 29, 30, 31, 32}) {
        const DateComponents components = day(year, month, dayOfMonth);
        ASSERT_EQ(instantOf(components), icuInstantOf(components, calendar))
            << testing::PrintToString(components);
      }
    }
  }
}

TEST(ComponentsFromDate, givesTheFieldsInTheZoneAndTheZone) {
  DateComponents expected = dayAndTime(1970, 1, 2, 0, 0, 1);
  expected.timeZone = TimeZone::universal();
  EXPECT_EQ(componentsFromDate(sys_seconds(seconds(86401)), TimeZone::universal()), expected);

  DateComponents west = dayAndTime(1969, 12, 31, 18, 59, 59);
  west.timeZone = TimeZone::withSecondsFromUtc(-18000);
  EXPECT_EQ(componentsFromDate(sys_seconds(seconds(-1)), *west.timeZone), west);
}

TEST(ComponentsFromDate, countsOneBcAsYear0) {
  const auto date = dateFromComponents(day(0, 12, 31));
  EXPECT_EQ(componentsFromDate(date, TimeZone::universal()).year, 0);
  EXPECT_EQ(componentsFromDate(date + seconds(86400), TimeZone::universal()).year, 1);
}

TEST(ComponentsFromDate, agreesWithIcuOnRandomInstants) {
  Random random;
  UErrorCode status = U_ZERO_ERROR;
  icu::GregorianCalendar calendar(status);
  const std::int64_t first = instantOf(day(-5000, 1, 1));
  const std::int64_t last = instantOf(day(10001, 1, 1));
  for (int i = 0; i < 100'000; ++i) {
    const std::int64_t instant = random.between(first, last);
    const TimeZone zone = random.zone();
    ASSERT_EQ(componentsFromDate(sys_seconds(seconds(instant)), zone),
              icuComponentsOf(instant, zone, calendar))
        << instant;
  }
}

TEST(ComponentsFromDate, agreesWithIcuOnBothEndsOfEveryDayFrom1500To2100) {
  UErrorCode status = U_ZERO_ERROR;
  icu::GregorianCalendar calendar(status);
  for (std::int64_t instant = instantOf(day(1500, 1, 1)); instant < instantOf(day(2100, 12, 31));
       instant += 86400) {
    for (const std::int64_t edge : {instant - 1, instant}) {
      ASSERT_EQ(componentsFromDate(sys_seconds(seconds(edge)), TimeZone::universal()),
                icuComponentsOf(edge, TimeZone::universal(), calendar))
          << edge;
    }
  }
}

TEST(ComponentsFromDate, isUndoneByDateFromComponentsUpToTheLastInstant) {
  Random random;
  std::vector<std::int64_t> instants = {Limits::min(),     Limits::min() + 1, -1, 0,
                                        Limits::max() - 1, Limits::max()};
  for (int i = 0; i < 100'000; ++i) {
    instants.push_back(random.between(Limits::min(), Limits::max()));
  }
  for (const std::int64_t instant : instants) {
    for (const std::int64_t offset : {-64800, 0, 64800}) {
      const TimeZone zone = *TimeZone::withSecondsFromUtc(offset);
      const sys_seconds date{seconds(instant)};
      ASSERT_EQ(dateFromComponents(componentsFromDate(date, zone)), date) << offset;
    }
  }
}

} // namespace
} // namespace cardwright
