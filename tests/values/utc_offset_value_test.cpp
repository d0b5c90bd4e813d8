#include "cardwright/date_formatter.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace cardwright {
namespace {

using Limits = std::numeric_limits<std::int64_t>;

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 60 * kMinute;

std::int64_t offsetOf(TextView text) {
  VCardUTCOffsetValue value;
  value.setOffset(77);
  EXPECT_TRUE(value.parse(text, 4, nullptr));
  return value.offset();
}

Text written(std::int64_t offset, VersionCode version) {
  VCardUTCOffsetValue value;
  value.setOffset(offset);
  Text output;
  value.generate(output, version, nullptr);
  return output;
}

TEST(UtcOffsetValue, isMadeWithoutAnOffset) {
  const VCardUTCOffsetValue value;
  EXPECT_EQ(value.offset(), 0);
  EXPECT_EQ(value.type(), u"utc-offset");
}

TEST(UtcOffsetValue, readsHoursAndMinutes) {
  struct Case {
    TextView text;
    std::int64_t offset;
  };
  const std::vector<Case> cases = {
      {u"-0530", -19800},
      {u"-05:30", -19800},
      {u"+0530", 19800},
      {u"+05:30", 19800},
      {u"0530", 19800},
      {u"+5", 18000},
      {u"-5", -18000},
      {u"+05", 18000},
      {u"5:30", 19800},
      {u"+00:00", 0},
      {u"-0000", 0},
      // The rest of the text does not count.
      {u"+05:30:59", 19800},
      {u"-05:30 (EST)", -19800},
      {u"+05 30", 18000},
      // Minutes are not limited.
      {u"+05:90", 5 * kHour + 90 * kMinute},
      {u"0599", 5 * kHour + 99 * kMinute},
      // Four digits are hours and minutes only where there is no colon.
      {u"702", 702 * kHour},
      {u"45235", 45235 * kHour},
      {u"0530:", 530 * kHour},
      {u":0530", 530 * kHour},
      {u"-:0530", 530 * kHour},
      {u"0530:15", 530 * kHour + 15 * kMinute},
      {u"10::58", 10 * kHour + 58 * kMinute},
      {u"1:::", 3600},
      // The minutes may carry a sign.
      {u"05:-30", 16200},
      {u"+05:+30", 19800},
      {u"-05:-30", -16200},
      {u"05-15", 5 * kHour - 15 * kMinute},
      {u"0530-15", 19800},
      {u"05:+-30", 18000},
      {u"05:-", 18000},
      {u"05:-:30", 18000},
      // Only a sign that is exactly "-" counts.
      {u"--5", 18000},
      {u" -5", 18000},
      {u"- 5", 18000},
      {u"GMT-5", 18000},
      {u"\u22125", 18000},
      // No digits.
      {u"", 0},
      {u"-", 0},
      {u"Z", 0},
      {u"America/New_York", 0},
      {u"\u0665", 0},
      {u"\u0661+5", 18000},
      {u"-\u06615", 18000},
      {u"-\xD800\x35", 18000},
  };
  for (const Case& expected : cases) {
    EXPECT_EQ(offsetOf(expected.text), expected.offset) << utf8FromText(expected.text);
  }
}

TEST(UtcOffsetValue, saturates) {
  EXPECT_EQ(offsetOf(u"99999999999999999999"), Limits::max());
  EXPECT_EQ(offsetOf(u"-99999999999999999999"), -Limits::max());
  EXPECT_EQ(offsetOf(u"1:99999999999999999999"), Limits::max());
  EXPECT_EQ(offsetOf(u"0:-99999999999999999999"), Limits::min());
  EXPECT_EQ(offsetOf(u"-0:-99999999999999999999"), Limits::max());
  EXPECT_EQ(offsetOf(u"2562047788015215:30"), Limits::max() - 7);
  EXPECT_EQ(offsetOf(u"2562047788015215:31"), Limits::max());
}

TEST(UtcOffsetValue, writesHoursAndMinutes) {
  struct Case {
    std::int64_t offset;
    TextView withColon;
    TextView version4;
  };
  const std::vector<Case> cases = {
      {19800, u"+05:30", u"+0530"},
      {-19800, u"-05:30", u"-0530"},
      {0, u"+00:00", u"+0000"},
      {-1800, u"-00:30", u"-0030"},
      {59, u"+00:00", u"+0000"},
      {-59, u"-00:00", u"-0000"},
      {3661, u"+01:01", u"+0101"},
      {99 * kHour + 59 * kMinute, u"+99:59", u"+9959"},
      {100 * kHour, u"+100:00", u"+10000"},
      {Limits::max(), u"+2562047788015215:30", u"+256204778801521530"},
      {Limits::min(), u"-2562047788015215:30", u"-256204778801521530"},
  };
  for (const Case& expected : cases) {
    for (const VersionCode version : {-1, 0, 1, 2, 3}) {
      EXPECT_EQ(written(expected.offset, version), expected.withColon);
    }
    for (const VersionCode version : {4, 5, 99}) {
      EXPECT_EQ(written(expected.offset, version), expected.version4);
    }
  }
}

TEST(UtcOffsetValue, appendsToTheOutput) {
  DateFormatter formatter("en_US_POSIX");
  VCardUTCOffsetValue value;
  Text output = u"TZ:";
  value.generate(output, 3, &formatter);
  EXPECT_EQ(output, u"TZ:+00:00");
  EXPECT_EQ(value.description(), u"+00:00");
}

TEST(UtcOffsetValue, readsHugeTexts) {
  constexpr std::size_t kUnits = std::size_t{4} << 20U;
  EXPECT_EQ(offsetOf(Text(kUnits, u'9')), Limits::max());
  EXPECT_EQ(offsetOf(Text(kUnits, u'-')), 0);
  EXPECT_EQ(offsetOf(Text(kUnits, u':')), 0);
  EXPECT_EQ(offsetOf(u"1" + Text(kUnits, u':') + u"30"), 5400);
  EXPECT_EQ(offsetOf(Text(kUnits, u'0') + u"1:" + Text(kUnits, u'0') + u"30"), 5400);
}

} // namespace
} // namespace cardwright
