#include "cardwright/date_components.h"
#include "cardwright/date_formatter.h"
#include "support/seed.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>
#include <unicode/gregocal.h>
#include <unicode/simpletz.h>
#include <unicode/smpdtfmt.h>

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

namespace cardwright {
namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

sys_seconds dateOf(std::int64_t year, std::int64_t month, std::int64_t day, std::int64_t hour = 0,
                   std::int64_t minute = 0, std::int64_t second = 0) {
  DateComponents components;
  components.year = year;
  components.month = month;
  components.day = day;
  components.hour = hour;
  components.minute = minute;
  components.second = second;
  return dateFromComponents(components);
}

Text formatted(TextView pattern, sys_seconds date, std::optional<TimeZone> zone = std::nullopt,
               std::string_view locale = "en_US_POSIX") {
  DateFormatter formatter(locale);
  formatter.setDateFormat(pattern);
  formatter.setTimeZone(zone);
  return formatter.stringFromDate(date);
}

TEST(DateFormatter, startsWithoutLocalePatternAndZone) {
  const DateFormatter formatter;
  EXPECT_EQ(formatter.locale(), std::nullopt);
  EXPECT_EQ(formatter.dateFormat(), u"");
  EXPECT_EQ(formatter.timeZone(), std::nullopt);
  EXPECT_EQ(formatter.stringFromDate(dateOf(2024, 1, 1)), u"");
  EXPECT_EQ(DateFormatter("en_US_POSIX").locale(), "en_US_POSIX");
}

TEST(DateFormatter, writesTheFieldsOfDatesAndTimes) {
  const sys_seconds date = dateOf(987, 4, 3, 2, 1, 9);
  EXPECT_EQ(formatted(u"yyyy-MM-dd'T'HH:mm:ss", date), u"0987-04-03T02:01:09");
  EXPECT_EQ(formatted(u"--MMdd", date), u"--0403");
  EXPECT_EQ(formatted(u"-mmss", date), u"-0109");
}

TEST(DateFormatter, appendsToWhatIsThere) {
  DateFormatter formatter("en_US_POSIX");
  Text output = u"REV:";
  formatter.setDateFormat(u"yyyy");
  formatter.appendDate(output, dateOf(2024, 1, 1));
  EXPECT_EQ(output, u"REV:2024");
  formatter.setDateFormat(u"yyyy MMMM");
  formatter.appendDate(output, dateOf(2024, 1, 1));
  EXPECT_EQ(output, u"REV:20242024 January");
}

TEST(DateFormatter, writesTheYearOfTheEra) {
  EXPECT_EQ(formatted(u"yyyy", dateOf(0, 1, 1)), u"0001");
  EXPECT_EQ(formatted(u"yyyy", dateOf(-43, 3, 15)), u"0044");
  EXPECT_EQ(formatted(u"yyyy", dateOf(12345, 1, 1)), u"12345");
}

TEST(DateFormatter, writesOffsets) {
  const sys_seconds date = dateOf(2024, 1, 1, 12);
  const auto east = TimeZone::withSecondsFromUtc(19800);
  const auto west = TimeZone::withSecondsFromUtc(-1800);
  const auto zero = TimeZone::withSecondsFromUtc(0);
  EXPECT_EQ(formatted(u"HH:mm Z ZZZZZ", date, east), u"17:30 +0530 +05:30");
  EXPECT_EQ(formatted(u"HH:mm Z ZZZZZ", date, west), u"11:30 -0030 -00:30");
  EXPECT_EQ(formatted(u"HH:mm Z ZZZZZ", date, zero), u"12:00 +0000 Z");
  EXPECT_EQ(formatted(u"HH:mm Z ZZZZZ", date, TimeZone::universal()), u"12:00 +0000 Z");
  EXPECT_EQ(formatted(u"HH:mm Z ZZZZZ", date), u"12:00 +0000 Z");
}

TEST(DateFormatter, copiesQuotedTextAndSigns) {
  const sys_seconds date = dateOf(2024, 1, 1);
  EXPECT_EQ(formatted(u"'yyyy' yyyy", date), u"yyyy 2024");
  EXPECT_EQ(formatted(u"yyyy''MM", date), u"2024'01");
  EXPECT_EQ(formatted(u"'o''clock'", date), u"o'clock");
  EXPECT_EQ(formatted(u"yyyy年MM月", date), u"2024年01月");
  EXPECT_EQ(formatted(u"'open yyyy", date), u"open yyyy");
  EXPECT_EQ(formatted(u"'", date), u"");
}

TEST(DateFormatter, leavesOtherPatternsAndLocalesToIcu) {
  const sys_seconds date = dateOf(2024, 2, 1, 15, 4, 5);
  EXPECT_EQ(formatted(u"EEEE d. MMMM yyyy h:mm a", date), u"Thursday 1. February 2024 3:04 PM");
  EXPECT_EQ(formatted(u"d. MMMM yyyy", date, {}, "de_DE"), u"1. Februar 2024");
  EXPECT_EQ(formatted(u"yyyy HH", date, TimeZone::withSecondsFromUtc(3600), "ar_EG"), u"٢٠٢٤ ١٦");
  EXPECT_EQ(formatted(u"yyyy", date, {}, "th_TH"), u"2024");
  EXPECT_EQ(formatted(u"OOOO", date, TimeZone::withSecondsFromUtc(-18000)), u"GMT-05:00");
}

TEST(DateFormatter, writesNothingForAPatternThatIcuRefuses) {
  DateFormatter formatter("en_US_POSIX");
  formatter.setDateFormat(u"yyyy n");
  Text output = u"kept";
  formatter.appendDate(output, dateOf(2024, 1, 1));
  EXPECT_EQ(output, u"kept");
}

TEST(DateFormatter, writesTheFirstAndTheLastInstant) {
  using Limits = std::numeric_limits<std::int64_t>;
  const sys_seconds first{seconds(Limits::min())};
  const sys_seconds last{seconds(Limits::max())};
  const auto west = TimeZone::withSecondsFromUtc(-64800);
  const auto east = TimeZone::withSecondsFromUtc(64800);
  EXPECT_EQ(formatted(u"yyyy-MM-dd'T'HH:mm:ss", last), u"292277026596-12-04T15:30:07");
  EXPECT_EQ(formatted(u"yyyy-MM-dd'T'HH:mm:ss", last, east), u"292277026596-12-05T09:30:07");
  EXPECT_EQ(formatted(u"mm:ss", first, west), u"29:52");
  EXPECT_FALSE(formatted(u"MMMM", first, west).empty());
  EXPECT_FALSE(formatted(u"MMMM", last, east).empty());
}

/// All patterns of dates, times and zones, and some that are odd.
std::vector<Text> patterns() {
  std::vector<Text> all;
  for (const TextView date :
       {u"", u"yyyy-MM-dd", u"yyyyMMdd", u"yyyy-MM", u"yyyy", u"--MMdd", u"--MM", u"---dd"}) {
    for (const TextView time :
         {u"", u"HH:mm:ss", u"HHmmss", u"HHmm", u"HH", u"-mmss", u"-mm", u"--ss", u"'T'HH:mm:ss",
          u"'T'HHmmss", u"'T'HHmm", u"'T'HH", u"'T'-mmss", u"'T'-mm", u"'T'--ss"}) {
      for (const TextView zone : {u"", u"'Z'", u"Z", u"ZZZZZ"}) {
        all.push_back(Text(date).append(time).append(zone));
      }
    }
  }
  for (const TextView odd :
       {u"ssmmHHddMMyyyy", u"yyyyyyyy", u"yyyy'yyyy'yyyy", u"''yyyy''MM''", u"'a''b'yyyy", u"yyyy'",
        u"'yyyy", u"'''", u"MM''''dd", u"ZZ ZZZ", u"é yyyy \U0001F600", u"yyyy\xD800MM"}) {
    all.emplace_back(odd);
  }
  return all;
}

TEST(DateFormatter, agreesWithIcuOnAllPatternsZonesAndManyDates) {
  std::mt19937_64 engine(testSeed());
  const auto between = [&engine](std::int64_t low, std::int64_t high) {
    return std::uniform_int_distribution<std::int64_t>(low, high)(engine);
  };
  const std::vector<std::int64_t> offsets = {0,     1,     59,    -59,    60,     -60,   1800,
                                             -1800, 19800, 20700, -18000, -34200, 64800, -64800,
                                             -1,    3661,  -3661, 50400,  -43200, 45900};
  const std::vector<sys_seconds> edges = {dateOf(1970, 1, 1),
                                          dateOf(1582, 10, 4, 23, 59, 59),
                                          dateOf(1582, 10, 15),
                                          dateOf(1, 1, 1),
                                          dateOf(0, 12, 31, 23, 59, 59),
                                          dateOf(-43, 3, 15),
                                          dateOf(9999, 12, 31, 23, 59),
                                          dateOf(10000, 1, 1),
                                          dateOf(2000, 2, 29)};
  for (const Text& pattern : patterns()) {
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat icuFormatter(
        icu::UnicodeString(pattern.data(), static_cast<int32_t>(pattern.size())),
        icu::Locale("en_US_POSIX"), status);
    ASSERT_TRUE(U_SUCCESS(status));
    DateFormatter formatter("en_US_POSIX");
    formatter.setDateFormat(pattern);
    for (const std::int64_t offset : offsets) {
      icuFormatter.adoptTimeZone(
          new icu::SimpleTimeZone(static_cast<int32_t>(offset) * 1000, "offset"));
      formatter.setTimeZone(TimeZone::withSecondsFromUtc(offset));
      std::vector<sys_seconds> dates = edges;
      for (int i = 0; i < 30; ++i) {
        dates.push_back(dateOf(between(-5000, 10000), between(1, 12), between(1, 31),
                               between(0, 23), between(0, 59), between(0, 59)));
      }
      for (const sys_seconds date : dates) {
        icu::UnicodeString expected;
        icuFormatter.format(static_cast<double>(date.time_since_epoch().count()) * 1000.0,
                            expected);
        ASSERT_EQ(formatter.stringFromDate(date),
                  Text(expected.getBuffer(), static_cast<std::size_t>(expected.length())))
            << date.time_since_epoch().count() << " at " << offset;
      }
    }
  }
}

} // namespace
} // namespace cardwright
