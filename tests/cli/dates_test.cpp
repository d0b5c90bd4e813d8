#include "support/text_printer.h"
#include "view/dates.h"

#include <gtest/gtest.h>

namespace cardwright::tool {
namespace {

using Field = std::optional<std::int64_t>;

DateComponents components(Field year, Field month, Field day, Field hour = {}, Field minute = {},
                          Field second = {}, std::optional<TimeZone> zone = {}) {
  return {year, month, day, hour, minute, second, zone};
}

TEST(DateText, writesDatesAsPeopleDo) {
  EXPECT_EQ(dateText(components(1815, 12, 10)), u"10 December 1815");
  EXPECT_EQ(dateText(components({}, 4, 12)), u"12 April");
  EXPECT_EQ(dateText(components(1985, 4, {})), u"April 1985");
  EXPECT_EQ(dateText(components(1985, {}, {})), u"1985");
  EXPECT_EQ(dateText(components({}, 4, {})), u"April");
  EXPECT_EQ(dateText(components({}, {}, 12)), u"day 12");
  EXPECT_EQ(dateText(components(0, 3, 15)), u"15 March 1 BC");
  EXPECT_EQ(dateText(components(-43, {}, {})), u"44 BC");
  EXPECT_EQ(dateText({}), u"");
}

TEST(DateText, writesTimesAndZones) {
  EXPECT_EQ(dateText(components({}, {}, {}, 9, 5)), u"09:05");
  EXPECT_EQ(dateText(components({}, {}, {}, 9, 5, 7)), u"09:05:07");
  EXPECT_EQ(dateText(components({}, {}, {}, 9)), u"09:--");
  EXPECT_EQ(dateText(components({}, {}, {}, {}, 5)), u"--:05");
  EXPECT_EQ(dateText(components({}, {}, {}, {}, {}, 7)), u"--:--:07");
  EXPECT_EQ(dateText(components(2024, 3, 18, 9, 15, 0, TimeZone::universal())),
            u"18 March 2024, 09:15:00 UTC");
  EXPECT_EQ(dateText(components(2024, 3, 18, 9, 15, {}, TimeZone::withSecondsFromUtc(-19800))),
            u"18 March 2024, 09:15 UTC-05:30");
}

TEST(DateText, showsImpossibleDatesAsNumbers) {
  EXPECT_EQ(dateText(components(1995, 13, 45)), u"1995-13-45");
  EXPECT_EQ(dateText(components({}, 0, 1)), u"-----00-01");
  EXPECT_EQ(dateText(components(1995, {}, 3)), u"1995----03");
  EXPECT_EQ(dateText(components(INT64_MIN, {}, {})), u"-9223372036854775808------");
}

TEST(OffsetText, writesHoursMinutesAndOddSeconds) {
  EXPECT_EQ(offsetText(0), u"UTC+00:00");
  EXPECT_EQ(offsetText(19800), u"UTC+05:30");
  EXPECT_EQ(offsetText(-1800), u"UTC-00:30");
  EXPECT_EQ(offsetText(3601), u"UTC+01:00:01");
  EXPECT_EQ(offsetText(INT64_MIN), u"UTC-2562047788015215:30:08");
}

} // namespace
} // namespace cardwright::tool
