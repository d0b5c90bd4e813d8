#include "cardwright/date_formatter.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "support/components_printer.h"
#include "support/seed.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <random>

namespace cardwright {
namespace {

constexpr std::array<VersionCode, 4> kVersions = {0, 2, 3, 4};

/// Makes values whose fields exist and have a common form.
class SoundValues {
 public:
  std::int64_t between(std::int64_t first, std::int64_t last) {
    return std::uniform_int_distribution<std::int64_t>(first, last)(m_engine);
  }

  /// Year, month and day; year and month; year; month and day; month; day.
  void setDate(DateComponents& comps) {
    const std::int64_t year = between(1583, 9999);
    const std::int64_t month = between(1, 12);
    switch (between(0, 5)) {
    case 0:
      comps.year = year;
      comps.month = month;
      comps.day = between(1, lengthOfMonth(year, month));
      break;
    case 1:
      comps.year = year;
      comps.month = month;
      break;
    case 2:
      comps.year = year;
      break;
    case 3:
      comps.month = month;
      comps.day = between(1, lengthOfMonth(2000, month));
      break;
    case 4:
      comps.month = month;
      break;
    default:
      comps.day = between(1, 31);
    }
  }

  /// Hour, minute and second; hour and minute; hour; minute and second; minute; second. With a
  /// zone or without one.
  void setTime(DateComponents& comps) {
    const std::int64_t form = between(0, 5);
    if (form <= 2) {
      comps.hour = between(0, 23);
    }
    if (form == 0 || form == 1 || form == 3 || form == 4) {
      comps.minute = between(0, 59);
    }
    if (form == 0 || form == 3 || form == 5) {
      comps.second = between(0, 59);
    }
    switch (between(0, 2)) {
    case 0:
      comps.timeZone = TimeZone::universal();
      break;
    case 1:
      comps.timeZone =
          TimeZone::withSecondsFromUtc(between(1, 1080) * (between(0, 1) == 0 ? 60 : -60));
      break;
    default:
      break;
    }
  }

 private:
  static std::int64_t lengthOfMonth(std::int64_t year, std::int64_t month) {
    if (month == 2) {
      return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0) ? 29 : 28;
    }
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
  }

  std::mt19937_64 m_engine{testSeed()};
};

void expectRoundTrip(TextView type, const DateComponents& comps) {
  DateFormatter formatter("en_US_POSIX");
  const auto value = VCardDateTimeValue::valueWithType(type);
  value->setComps(comps);
  for (const VersionCode version : kVersions) {
    Text text;
    value->generate(text, version, &formatter);
    const auto again = VCardDateTimeValue::valueWithType(type);
    ASSERT_TRUE(again->parse(text, version, &formatter)) << utf8FromText(text);
    ASSERT_EQ(again->comps(), comps)
        << utf8FromText(text) << " as " << utf8FromText(type) << " in version " << version;
    Text textAgain;
    again->generate(textAgain, version, &formatter);
    ASSERT_EQ(textAgain, text);
  }
}

constexpr int kRounds = 20'000;

TEST(DateRoundTrip, keepsDates) {
  SoundValues values;
  for (int i = 0; i < kRounds && !testing::Test::HasFailure(); ++i) {
    DateComponents comps;
    values.setDate(comps);
    expectRoundTrip(u"date", comps);
    expectRoundTrip(u"date-and-or-time", comps);
  }
}

TEST(DateRoundTrip, keepsTimes) {
  SoundValues values;
  for (int i = 0; i < kRounds && !testing::Test::HasFailure(); ++i) {
    DateComponents comps;
    values.setTime(comps);
    expectRoundTrip(u"time", comps);
    expectRoundTrip(u"date-and-or-time", comps);
  }
}

TEST(DateRoundTrip, keepsDatesWithTimes) {
  SoundValues values;
  for (int i = 0; i < kRounds && !testing::Test::HasFailure(); ++i) {
    DateComponents comps;
    values.setDate(comps);
    values.setTime(comps);
    expectRoundTrip(u"date-time", comps);
    expectRoundTrip(u"timestamp", comps);
    expectRoundTrip(u"date-and-or-time", comps);
  }
}

TEST(DateRoundTrip, keepsInstants) {
  SoundValues values;
  DateFormatter formatter("en_US_POSIX");
  const std::chrono::sys_days first = std::chrono::year(1583) / 1 / 1;
  const std::chrono::sys_days last = std::chrono::year(9999) / 12 / 31;
  for (int i = 0; i < kRounds && !testing::Test::HasFailure(); ++i) {
    const std::chrono::sys_seconds date{std::chrono::seconds(
        values.between(std::chrono::sys_seconds(first).time_since_epoch().count(),
                       std::chrono::sys_seconds(last).time_since_epoch().count()))};
    const auto value = VCardDateTimeValue::valueWithDate(date);
    EXPECT_EQ(dateFromComponents(value->comps()), date);
    expectRoundTrip(u"timestamp", value->comps());
  }
}

TEST(DateRoundTrip, keepsUtcOffsets) {
  SoundValues values;
  DateFormatter formatter("en_US_POSIX");
  for (int i = 0; i < kRounds && !testing::Test::HasFailure(); ++i) {
    VCardUTCOffsetValue value;
    value.setOffset(values.between(-5999, 5999) * 60); // under 100 hours
    for (const VersionCode version : kVersions) {
      Text text;
      value.generate(text, version, &formatter);
      VCardUTCOffsetValue again;
      EXPECT_TRUE(again.parse(text, version, &formatter));
      EXPECT_EQ(again.offset(), value.offset()) << utf8FromText(text);
    }
  }
}

} // namespace
} // namespace cardwright
