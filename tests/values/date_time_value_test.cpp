#include "cardwright/date_formatter.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard_date_time_value.h"
#include "support/components_printer.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <utility>
#include <vector>

namespace cardwright {
namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

constexpr std::nullopt_t kUnset = std::nullopt;
constexpr std::optional<TimeZone> kUniversal = TimeZone::universal();

constexpr std::optional<TimeZone> offset(std::int64_t secondsFromUtc) {
  return TimeZone::withSecondsFromUtc(secondsFromUtc);
}

std::shared_ptr<VCardDateTimeValue> valueOf(std::optional<TextView> type,
                                            const DateComponents& comps) {
  auto value = VCardDateTimeValue::valueWithType(type);
  value->setComps(comps);
  return value;
}

std::shared_ptr<VCardDateTimeValue> parsed(std::optional<TextView> type, TextView text) {
  DateFormatter formatter("en_US_POSIX");
  auto value = VCardDateTimeValue::valueWithType(type);
  value->parse(text, 4, &formatter);
  return value;
}

Text written(const VCardDateTimeValue& value, VersionCode version) {
  DateFormatter formatter("en_US_POSIX");
  Text output;
  value.generate(output, version, &formatter);
  return output;
}

DateComponents timeRead(TextView text) {
  VCardDateTimeValue value;
  value.parseTime(text);
  return value.comps();
}

DateComponents dateRead(TextView text) {
  VCardDateTimeValue value;
  value.parseDate(text);
  return value.comps();
}

/// A text, the fields that it is read as, and what they are written as in versions 0 and 2, 3, 4.
struct Row {
  std::optional<TextView> type;
  TextView text;
  DateComponents comps;
  TextView basic;
  TextView version3;
  TextView version4;
};

// Written alike in all versions.
Row row(std::optional<TextView> type, TextView text, const DateComponents& comps, TextView all) {
  return {type, text, comps, all, all, all};
}

// Written with separators in version 3.
Row row(std::optional<TextView> type, TextView text, const DateComponents& comps, TextView basic,
        TextView extended) {
  return {type, text, comps, basic, extended, basic};
}

std::vector<Row> dates() {
  constexpr TextView kType = u"date";
  return {
      row(kType, u"20240229", {2024, 2, 29}, u"20240229", u"2024-02-29"),
      row(kType, u"2024-02-29", {2024, 2, 29}, u"20240229", u"2024-02-29"),
      row(kType, u"2024/02/29", {2024, 2, 29}, u"20240229", u"2024-02-29"),
      row(kType, u"2024 02 29", {2024, 2, 29}, u"20240229", u"2024-02-29"),
      row(kType, u"2024-2-9", {2024, 2, 9}, u"20240209", u"2024-02-09"),
      row(kType, u"2024-02", {2024, 2}, u"2024-02"),
      row(kType, u"202402", {2024, 2}, u"2024-02"),
      row(kType, u"2024", {2024}, u"2024"),
      row(kType, u"--0412", {kUnset, 4, 12}, u"--0412"),
      row(kType, u"--04-12", {kUnset, 4, 12}, u"--0412"),
      row(kType, u"--04", {kUnset, 4}, u"--04"),
      row(kType, u"---12", {kUnset, kUnset, 12}, u"---12"),
      row(kType, u"---31", {kUnset, kUnset, 31}, u"---31"),
      row(kType, u"--0229", {kUnset, 2, 29}, u"--0229"),
      // A separator of the year is not its sign.
      row(kType, u"-1985-04-12", {1985, 4, 12}, u"19850412", u"1985-04-12"),
      // Two digits are no year: they are tried as the month.
      row(kType, u"24-02-29", {kUnset, 24, 2}, u"--1202"),
      row(kType, u"04/26/1986", {kUnset, 4, 26}, u"--0426"),
      // Dates that do not exist roll over when they are written.
      row(kType, u"2024-02-30", {2024, 2, 30}, u"20240301", u"2024-03-01"),
      row(kType, u"--0230", {kUnset, 2, 30}, u"--0301"),
      row(kType, u"20231301", {2023, 13, 1}, u"20240101", u"2024-01-01"),
      row(kType, u"20240000", {2024, 0, 0}, u"20231130", u"2023-11-30"),
      row(kType, u"15821010", {1582, 10, 10}, u"15821020", u"1582-10-20"),
      row(kType, u"15000229", {1500, 2, 29}, u"15000229", u"1500-02-29"),
      row(kType, u"17000229", {1700, 2, 29}, u"17000301", u"1700-03-01"),
      row(kType, u"00000101", {0, 1, 1}, u"00010101", u"0001-01-01"),
      // What follows the date is not looked at.
      row(kType, u"20240229Z", {2024, 2, 29}, u"20240229", u"2024-02-29"),
      row(kType, u"2024-02-29T10:22", {2024, 2, 29}, u"20240229", u"2024-02-29"),
      row(kType, u"--12--05", {kUnset, 12}, u"--12"),
      // Omission marks, one field after the other.
      row(kType, u"---", {}, u""),
      row(kType, u"----05", {kUnset, kUnset, 5}, u"---05"),
      row(kType, u"2024--12", {2024, kUnset, 12}, u""),
      row(kType, u"", {}, u""),
      row(kType, u"junk", {}, u""),
      row(kType, u"\uFF11\uFF19\uFF18\uFF15", {}, u""),
      row(kType, u"\xD800\x31\x39\x38\x35", {1985}, u"1985"),
  };
}

std::vector<Row> times() {
  constexpr TextView kType = u"time";
  return {
      row(kType, u"102200", {kUnset, kUnset, kUnset, 10, 22, 0}, u"102200", u"10:22:00"),
      row(kType, u"10:22:00", {kUnset, kUnset, kUnset, 10, 22, 0}, u"102200", u"10:22:00"),
      row(kType, u"1022", {kUnset, kUnset, kUnset, 10, 22}, u"1022"),
      row(kType, u"10:22", {kUnset, kUnset, kUnset, 10, 22}, u"1022"),
      row(kType, u"10", {kUnset, kUnset, kUnset, 10}, u"10"),
      row(kType, u"T1022", {kUnset, kUnset, kUnset, 10, 22}, u"1022"),
      row(kType, u"-2200", {kUnset, kUnset, kUnset, kUnset, 22, 0}, u"-2200"),
      row(kType, u"-22:01", {kUnset, kUnset, kUnset, kUnset, 22, 1}, u"-2201"),
      row(kType, u"-22", {kUnset, kUnset, kUnset, kUnset, 22}, u"-22"),
      row(kType, u"--07", {kUnset, kUnset, kUnset, kUnset, kUnset, 7}, u"--07"),
      row(kType, u"102200Z", {kUnset, kUnset, kUnset, 10, 22, 0, kUniversal}, u"102200Z",
          u"10:22:00Z"),
      row(kType, u"10Z", {kUnset, kUnset, kUnset, 10, kUnset, kUnset, kUniversal}, u"10Z"),
      row(kType, u"--30Z", {kUnset, kUnset, kUnset, kUnset, kUnset, 30, kUniversal}, u"--30Z"),
      {kType,
       u"102200-0800",
       {kUnset, kUnset, kUnset, 10, 22, 0, offset(-28800)},
       u"102200-08:00",
       u"10:22:00-08:00",
       u"102200-0800"},
      {kType,
       u"10:22:00+05:30",
       {kUnset, kUnset, kUnset, 10, 22, 0, offset(19800)},
       u"102200+05:30",
       u"10:22:00+05:30",
       u"102200+0530"},
      {kType,
       u"10+0530",
       {kUnset, kUnset, kUnset, 10, kUnset, kUnset, offset(19800)},
       u"10+05:30",
       u"10+05:30",
       u"10+0530"},
      // Behind a number, "-" begins the zone.
      {kType,
       u"10-05",
       {kUnset, kUnset, kUnset, 10, kUnset, kUnset, offset(-18000)},
       u"10-05:00",
       u"10-05:00",
       u"10-0500"},
      {kType,
       u"1022-05:00",
       {kUnset, kUnset, kUnset, 10, 22, kUnset, offset(-18000)},
       u"1022-05:00",
       u"1022-05:00",
       u"1022-0500"},
      {kType,
       u"-22-0500",
       {kUnset, kUnset, kUnset, kUnset, 22, kUnset, offset(-18000)},
       u"-22-05:00",
       u"-22-05:00",
       u"-22-0500"},
      {kType,
       u"10:-05",
       {kUnset, kUnset, kUnset, 10, kUnset, kUnset, offset(-18000)},
       u"10-05:00",
       u"10-05:00",
       u"10-0500"},
      {kType,
       u"1022+0000",
       {kUnset, kUnset, kUnset, 10, 22, kUnset, offset(0)},
       u"1022Z",
       u"1022Z",
       u"1022+0000"},
      {kType,
       u"1022-1800",
       {kUnset, kUnset, kUnset, 10, 22, kUnset, offset(-64800)},
       u"1022-18:00",
       u"1022-18:00",
       u"1022-1800"},
      {kType,
       u"1022+1760",
       {kUnset, kUnset, kUnset, 10, 22, kUnset, offset(64800)},
       u"1022+18:00",
       u"1022+18:00",
       u"1022+1800"},
      // Zones that are none.
      row(kType, u"1022+1801", {kUnset, kUnset, kUnset, 10, 22}, u"1022"),
      row(kType, u"1022+9900", {kUnset, kUnset, kUnset, 10, 22}, u"1022"),
      row(kType, u"1022+5", {kUnset, kUnset, kUnset, 10, 22}, u"1022"),
      row(kType, u"1022+5x", {kUnset, kUnset, kUnset, 10, 22}, u"1022"),
      row(kType, u"1022+05:", {kUnset, kUnset, kUnset, 10, 22}, u"1022"),
      row(kType, u"1022z", {kUnset, kUnset, kUnset, 10, 22}, u"1022"),
      row(kType, u"10:22:00.5Z", {kUnset, kUnset, kUnset, 10, 22, 0}, u"102200", u"10:22:00"),
      row(kType, u"12-30", {kUnset, kUnset, kUnset, 12}, u"12"),
      // A "+" in front of the hour is a separator.
      row(kType, u"+1022", {kUnset, kUnset, kUnset, 10, 22}, u"1022"),
      // Times that do not exist roll over when they are written.
      row(kType, u"240000", {kUnset, kUnset, kUnset, 24, 0, 0}, u"000000", u"00:00:00"),
      row(kType, u"235960", {kUnset, kUnset, kUnset, 23, 59, 60}, u"000000", u"00:00:00"),
      row(kType, u"99:99", {kUnset, kUnset, kUnset, 99, 99}, u"0439"),
      row(kType, u"", {}, u""),
      row(kType, u"noon", {}, u""),
      row(kType, u"---", {}, u""),
  };
}

std::vector<Row> datesWithTimes() {
  return {
      row(u"date-time", u"2024-02-29T10:22:00Z", {2024, 2, 29, 10, 22, 0, kUniversal},
          u"20240229T102200Z", u"2024-02-29T10:22:00Z"),
      row(u"date-time", u"20240229T102200", {2024, 2, 29, 10, 22, 0}, u"20240229T102200",
          u"2024-02-29T10:22:00"),
      row(u"date-time", u"2024-02-29 10:22", {2024, 2, 29, 10, 22}, u"20240229T1022",
          u"2024-02-29T1022"),
      row(u"date-time", u"2024 02T10", {2024, 2, kUnset, 10}, u"2024-02T10"),
      row(u"date-time", u"--0412T1022", {kUnset, 4, 12, 10, 22}, u"--0412T1022"),
      row(u"date-time", u"---12T-45", {kUnset, kUnset, 12, kUnset, 45}, u"---12T-45"),
      row(u"date-time", u"1985T--30", {1985, kUnset, kUnset, kUnset, kUnset, 30}, u"1985T--30"),
      row(u"date-time", u"20240229T", {2024, 2, 29}, u"20240229", u"2024-02-29"),
      // Only date-and-or-times mark a time that stands alone.
      row(u"date-time", u"T1022", {kUnset, kUnset, kUnset, 10, 22}, u"1022"),
      row(u"date-time", u"T", {}, u""),
      row(u"timestamp", u"20240101T120000Z", {2024, 1, 1, 12, 0, 0, kUniversal},
          u"20240101T120000Z", u"2024-01-01T12:00:00Z"),
      {u"timestamp",
       u"20240101T120000+0530",
       {2024, 1, 1, 12, 0, 0, offset(19800)},
       u"20240101T120000+05:30",
       u"2024-01-01T12:00:00+05:30",
       u"20240101T120000+0530"},
      row(u"TimeStamp", u"20241231T246060", {2024, 12, 31, 24, 60, 60}, u"20250101T010100",
          u"2025-01-01T01:01:00"),
      row(u"date-and-or-time", u"--0412", {kUnset, 4, 12}, u"--0412"),
      row(u"date-and-or-time", u"T1022", {kUnset, kUnset, kUnset, 10, 22}, u"T1022"),
      row(u"date-and-or-time", u"T-22", {kUnset, kUnset, kUnset, kUnset, 22}, u"T-22"),
      row(u"date-and-or-time", u"T10Z", {kUnset, kUnset, kUnset, 10, kUnset, kUnset, kUniversal},
          u"T10Z"),
      row(u"DATE-AND-OR-TIME", u"T102200", {kUnset, kUnset, kUnset, 10, 22, 0}, u"T102200",
          u"T10:22:00"),
      row(u"date-and-or-time", u"19850412", {1985, 4, 12}, u"19850412", u"1985-04-12"),
      row(u"date-and-or-time", u"20240229T1022", {2024, 2, 29, 10, 22}, u"20240229T1022",
          u"2024-02-29T1022"),
      // Without "T" all of it is a date.
      row(u"date-and-or-time", u"2024 10:22", {2024, 10, 22}, u"20241022", u"2024-10-22"),
      row(u"date-and-or-time", u"T", {}, u""),
      row(u"date-and-or-time", u"about 1900", {}, u""),
      row(kUnset, u"T1022", {kUnset, kUnset, kUnset, 10, 22}, u"1022"),
      row(kUnset, u"20240229T1022", {2024, 2, 29, 10, 22}, u"20240229T1022", u"2024-02-29T1022"),
      row(kUnset, u"1985-04", {1985, 4}, u"1985-04"),
      // Unknown types are read as dates.
      row(u"x-date", u"20240229T1022", {2024, 2, 29}, u"20240229", u"2024-02-29"),
      row(u"", u"20240229", {2024, 2, 29}, u"20240229", u"2024-02-29"),
  };
}

void checkRows(const std::vector<Row>& rows) {
  for (const Row& expected : rows) {
    SCOPED_TRACE(utf8FromText(expected.text));
    DateFormatter formatter("en_US_POSIX");
    const auto value = VCardDateTimeValue::valueWithType(expected.type);
    EXPECT_TRUE(value->parse(expected.text, 4, &formatter));
    EXPECT_EQ(value->comps(), expected.comps);
    EXPECT_EQ(value->type(), expected.type);
    EXPECT_EQ(written(*value, 0), expected.basic);
    EXPECT_EQ(written(*value, 2), expected.basic);
    EXPECT_EQ(written(*value, 3), expected.version3);
    EXPECT_EQ(written(*value, 4), expected.version4);
  }
}

TEST(DateTimeValue, readsAndWritesDates) {
  checkRows(dates());
}

TEST(DateTimeValue, readsAndWritesTimes) {
  checkRows(times());
}

TEST(DateTimeValue, readsAndWritesDatesWithTimes) {
  checkRows(datesWithTimes());
}

TEST(DateTimeValue, readsAlikeInAllVersions) {
  for (const VersionCode version : {-1, 0, 1, 2, 3, 4, 5}) {
    DateFormatter formatter("en_US_POSIX");
    const auto value = VCardDateTimeValue::valueWithType(u"timestamp");
    EXPECT_TRUE(value->parse(u"2024-01-02T03:04:05Z", version, &formatter));
    EXPECT_EQ(value->comps(), (DateComponents{2024, 1, 2, 3, 4, 5, kUniversal}));
  }
}

TEST(DateTimeValue, refusesADateTimeWithoutTOrBlank) {
  DateFormatter formatter("en_US_POSIX");
  for (const TextView type : {u"date-time", u"timestamp", u"DATE-TIME", u"TIME\u017FTAMP"}) {
    const auto value = valueOf(type, {2024, 2, 29});
    for (const TextView text : {u"20240229", u"", u"2024-02-29t10", u"--0412"}) {
      EXPECT_FALSE(value->parse(text, 4, &formatter));
      EXPECT_EQ(value->comps(), DateComponents());
    }
  }
}

TEST(DateTimeValue, comparesItsTypeByFullCaseFolding) {
  EXPECT_EQ(parsed(u"TIME\u017FTAMP", u"20240101T101112")->comps(),
            (DateComponents{2024, 1, 1, 10, 11, 12}));
  EXPECT_EQ(parsed(u"TIME", u"1011")->comps().hour, 10);
}

TEST(DateTimeValue, prefersTToABlankAsTheBorderOfTheTime) {
  EXPECT_EQ(parsed(u"date-time", u"2024 02 29T10:22")->comps(),
            (DateComponents{2024, 2, 29, 10, 22}));
  EXPECT_EQ(parsed(u"date-time", u"20240229T10T30")->comps(),
            (DateComponents{2024, 2, 29, 10, 30}));
}

TEST(DateTimeValue, startsFromNewFieldsWithEachText) {
  DateFormatter formatter("en_US_POSIX");
  const auto value = parsed(u"date-and-or-time", u"20240229T102200Z");
  EXPECT_TRUE(value->parse(u"1985", 4, &formatter));
  EXPECT_EQ(value->comps(), (DateComponents{1985}));
}

TEST(DateTimeValue, keepsFieldsThatADateOrTimeByItselfDoesNotHave) {
  VCardDateTimeValue value;
  value.setComps({2024, 2, 29, 10, 22, 0, kUniversal});
  value.parseDate(u"--03");
  EXPECT_EQ(value.comps(), (DateComponents{2024, 3, 29, 10, 22, 0, kUniversal}));
  value.parseTime(u"-45+9900");
  EXPECT_EQ(value.comps(), (DateComponents{2024, 3, 29, 10, 45, 0, kUniversal}));
  value.parseTime(u"11+0100");
  EXPECT_EQ(value.comps(), (DateComponents{2024, 3, 29, 11, 45, 0, offset(3600)}));
}

TEST(DateTimeValue, readsDatesAndTimesByThemselves) {
  EXPECT_EQ(dateRead(u"1985-04-12"), (DateComponents{1985, 4, 12}));
  EXPECT_EQ(dateRead(u"---12"), (DateComponents{kUnset, kUnset, 12}));
  EXPECT_EQ(timeRead(u"102200-0500"),
            (DateComponents{kUnset, kUnset, kUnset, 10, 22, 0, offset(-18000)}));
  EXPECT_EQ(timeRead(u"22-53-14"), (DateComponents{kUnset, kUnset, kUnset, 22}));
  EXPECT_EQ(timeRead(u"--10+10"),
            (DateComponents{kUnset, kUnset, kUnset, kUnset, kUnset, 10, offset(36000)}));
}

TEST(DateTimeValue, writesAZoneWithOrWithoutATime) {
  EXPECT_EQ(written(*valueOf(u"date", {2024, 1, 2, kUnset, kUnset, kUnset, kUniversal}), 4),
            u"20240102Z");
  EXPECT_EQ(written(*valueOf(u"date", {2024, 1, 2, kUnset, kUnset, kUnset, offset(-18000)}), 3),
            u"2024-01-02-05:00");
  EXPECT_EQ(
      written(*valueOf(u"time", {kUnset, kUnset, kUnset, kUnset, kUnset, kUnset, offset(3600)}), 4),
      u"+0100");
}

TEST(DateTimeValue, writesNothingForFieldsWithoutACommonForm) {
  EXPECT_EQ(written(*valueOf(u"date", {2024, kUnset, 12}), 4), u"");
  EXPECT_EQ(written(*valueOf(u"time", {kUnset, kUnset, kUnset, 10, kUnset, 30}), 4), u"");
  EXPECT_EQ(written(*valueOf(u"date-and-or-time", {2024, 2, 29, 10, kUnset, 30}), 4), u"20240229");
  EXPECT_EQ(written(*valueOf(u"date-and-or-time", {}), 4), u"");
}

TEST(DateTimeValue, takesVersionsAbove4Like4AndOddOnesLike0) {
  const auto value = valueOf(u"timestamp", {2024, 1, 2, 3, 4, 5, offset(19800)});
  EXPECT_EQ(written(*value, 5), u"20240102T030405+0530");
  EXPECT_EQ(written(*value, std::numeric_limits<VersionCode>::max()), u"20240102T030405+0530");
  EXPECT_EQ(written(*value, 1), u"20240102T030405+05:30");
  EXPECT_EQ(written(*value, -1), u"20240102T030405+05:30");
}

TEST(DateTimeValue, writesYearsBeyondFourDigits) {
  EXPECT_EQ(written(*valueOf(u"date", {12345, 1, 2}), 4), u"123450102");
  EXPECT_EQ(written(*valueOf(u"date", {-43, 3, 15}), 4), u"00440315");
  EXPECT_EQ(written(*valueOf(u"date", {std::numeric_limits<std::int64_t>::max()}), 4),
            u"292277026596");
}

TEST(DateTimeValue, appendsToTheOutput) {
  DateFormatter formatter("en_US_POSIX");
  Text output = u"BDAY:";
  valueOf(u"date", {1985, 4, 12})->generate(output, 4, &formatter);
  EXPECT_EQ(output, u"BDAY:19850412");
}

TEST(DateTimeValue, leavesItsLocalePatternAndZoneInTheFormatter) {
  DateFormatter formatter("de_DE");
  formatter.setTimeZone(kUniversal);
  Text output;
  valueOf(u"timestamp", {2024, 1, 2, 3, 4, 5, offset(3600)})->generate(output, 3, &formatter);
  EXPECT_EQ(output, u"2024-01-02T03:04:05+01:00");
  EXPECT_EQ(formatter.locale(), "en_US_POSIX");
  EXPECT_EQ(formatter.dateFormat(), u"yyyy-MM-dd'T'HH:mm:ssZZZZZ");
  EXPECT_EQ(formatter.timeZone(), offset(3600));
  valueOf(u"date", {2024})->generate(output, 3, &formatter);
  EXPECT_EQ(formatter.timeZone(), std::nullopt);
}

TEST(DateTimeValue, describesItselfAsInAnUnknownVersion) {
  EXPECT_EQ(valueOf(u"timestamp", {2024, 1, 2, 3, 4, 5, offset(3600)})->description(),
            u"20240102T030405+01:00");
}

TEST(DateTimeValue, choosesThePatternByTheFieldsThatAreSet) {
  const std::vector<std::pair<DateComponents, std::array<TextView, 2>>> rows = {
      {{2024, 2, 29}, {u"yyyyMMdd", u"yyyy-MM-dd"}},
      {{2024, 2}, {u"yyyy-MM", u"yyyy-MM"}},
      {{2024}, {u"yyyy", u"yyyy"}},
      {{kUnset, 2, 29}, {u"--MMdd", u"--MMdd"}},
      {{kUnset, 2}, {u"--MM", u"--MM"}},
      {{kUnset, kUnset, 29}, {u"---dd", u"---dd"}},
      {{2024, kUnset, 29}, {u"", u""}},
      {{kUnset, kUnset, kUnset, 1, 2, 3}, {u"HHmmss", u"HH:mm:ss"}},
      {{kUnset, kUnset, kUnset, 1, 2}, {u"HHmm", u"HHmm"}},
      {{kUnset, kUnset, kUnset, 1}, {u"HH", u"HH"}},
      {{kUnset, kUnset, kUnset, kUnset, 2, 3}, {u"-mmss", u"-mmss"}},
      {{kUnset, kUnset, kUnset, kUnset, 2}, {u"-mm", u"-mm"}},
      {{kUnset, kUnset, kUnset, kUnset, kUnset, 3}, {u"--ss", u"--ss"}},
      {{kUnset, kUnset, kUnset, 1, kUnset, 3}, {u"", u""}},
      {{2024, 2, 29, 1, 2, 3}, {u"yyyyMMdd'T'HHmmss", u"yyyy-MM-dd'T'HH:mm:ss"}},
      {{kUnset, 2, 29, 1}, {u"--MMdd'T'HH", u"--MMdd'T'HH"}},
      {{2024, kUnset, 29, 1}, {u"HH", u"HH"}},
      {{}, {u"", u""}},
  };
  for (const auto& [comps, patterns] : rows) {
    const auto value = valueOf(u"timestamp", comps);
    EXPECT_EQ(value->dateFormatForVersion(0), patterns[0]);
    EXPECT_EQ(value->dateFormatForVersion(2), patterns[0]);
    EXPECT_EQ(value->dateFormatForVersion(3), patterns[1]);
    EXPECT_EQ(value->dateFormatForVersion(4), patterns[0]);
  }
}

TEST(DateTimeValue, marksTheTimeInThePatternOfADateAndOrTime) {
  const DateComponents comps = {kUnset, kUnset, kUnset, 10, 22};
  EXPECT_EQ(valueOf(u"date-and-or-time", comps)->dateFormatForVersion(4), u"'T'HHmm");
  EXPECT_EQ(valueOf(u"Date-And-Or-Time", comps)->dateFormatForVersion(3), u"'T'HHmm");
  EXPECT_EQ(valueOf(u"time", comps)->dateFormatForVersion(4), u"HHmm");
  EXPECT_EQ(valueOf(kUnset, comps)->dateFormatForVersion(4), u"HHmm");
}

TEST(DateTimeValue, endsThePatternWithTheZone) {
  const auto pattern = [](std::optional<TimeZone> zone, VersionCode version) {
    return valueOf(u"time", {kUnset, kUnset, kUnset, 10, kUnset, kUnset, zone})
        ->dateFormatForVersion(version);
  };
  for (const VersionCode version : {0, 2, 3}) {
    EXPECT_EQ(pattern(kUniversal, version), u"HH'Z'");
    EXPECT_EQ(pattern(offset(0), version), u"HHZZZZZ");
    EXPECT_EQ(pattern(offset(19800), version), u"HHZZZZZ");
  }
  EXPECT_EQ(pattern(kUniversal, 4), u"HH'Z'");
  EXPECT_EQ(pattern(offset(0), 4), u"HHZ");
  EXPECT_EQ(pattern(offset(19800), 4), u"HHZ");
}

TEST(DateTimeValue, keepsTheTypeItIsMadeWith) {
  for (const TextView type : {u"date", u"time", u"date-time", u"date-and-or-time", u"timestamp",
                              u"DATE", u"X-DATE", u""}) {
    Text name(type);
    const auto value = VCardDateTimeValue::valueWithType(name);
    name.assign(name.size(), u'x');
    EXPECT_EQ(value->type(), type);
    EXPECT_EQ(value->comps(), DateComponents());
  }
  EXPECT_EQ(VCardDateTimeValue::valueWithType(kUnset)->type(), std::nullopt);
  EXPECT_EQ(VCardDateTimeValue().type(), std::nullopt);
}

TEST(DateTimeValue, isMadeFromAnInstant) {
  EXPECT_EQ(VCardDateTimeValue::valueWithDate(kUnset), nullptr);
  const auto value = VCardDateTimeValue::valueWithDate(sys_seconds(seconds(86401)));
  EXPECT_EQ(value->type(), u"timestamp");
  EXPECT_EQ(value->comps(), (DateComponents{1970, 1, 2, 0, 0, 1, kUniversal}));
  EXPECT_EQ(written(*value, 4), u"19700102T000001Z");
  EXPECT_EQ(VCardDateTimeValue::valueWithDate(sys_seconds(seconds(-1)))->comps(),
            (DateComponents{1969, 12, 31, 23, 59, 59, kUniversal}));
}

TEST(ScanNumber, takesAsManyDigitsAsItIsTold) {
  struct Case {
    TextView text;
    std::int64_t numDigits;
    bool allowOmission;
    std::int64_t number;
    TextView rest;
  };
  constexpr std::int64_t kLast = std::numeric_limits<std::int64_t>::max();
  const std::vector<Case> cases = {
      {u"20240229", 4, false, 2024, u"0229"},
      {u"0229", 2, false, 2, u"29"},
      {u"-04-12", 2, false, 4, u"-12"},
      {u":22", 2, false, 22, u""},
      {u"x5x", 4, true, 5, u"x"},
      {u"é5", 2, false, 5, u""},
      // Left out.
      {u"--0412", 4, true, -2, u"0412"},
      {u"---12", 4, true, -2, u"-12"},
      {u"-12", 2, true, -2, u"12"},
      {u"--12", 2, true, -2, u"-12"},
      // One "-" is a separator of a year.
      {u"-45x", 4, true, 45, u"x"},
      // Without leave, the mark is a separator.
      {u"--567x", 4, false, -1, u"-567x"},
      {u"-12", 2, false, 12, u""},
      // Missing: too few digits count only behind a separator, which stays consumed.
      {u"202", 4, false, -1, u"202"},
      {u"2-", 2, false, -1, u"2-"},
      {u"-202", 4, false, 202, u""},
      {u":-", 2, true, -1, u"-"},
      {u"", 2, true, -1, u""},
      {u"", 4, false, -1, u""},
      {u"-", 2, false, -1, u""},
      {u"\u0661\u0662", 2, false, -1, u"\u0662"},
      // Other numbers of digits.
      {u"7", 1, false, 7, u""},
      {u"12", 0, false, -1, u"12"},
      {u"12", -1, false, -1, u"12"},
      {u"-99999999999999999999x", 30, false, kLast, u"x"},
      {u"99999999999999999999", 20, true, kLast, u""},
      {u"12", kLast, false, -1, u"12"},
      {u"-12", kLast, false, 12, u""},
  };
  for (const Case& expected : cases) {
    SCOPED_TRACE(utf8FromText(expected.text));
    Text text(expected.text);
    EXPECT_EQ(
        VCardDateTimeValue::scanNumberFromString(text, expected.numDigits, expected.allowOmission),
        expected.number);
    EXPECT_EQ(text, expected.rest);
  }
}

TEST(DateTimeValue, readsNoFurtherThanItMustInAHugeText) {
  constexpr std::size_t kUnits = std::size_t{4} << 20U;
  for (const TextView type : {u"date", u"time", u"date-time", u"date-and-or-time"}) {
    for (const TextView piece :
         {u"1", u"-", u"T", u" ", u":", u"+", u"Z", u"-1", u"T1", u"\xD800"}) {
      Text text(type == u"date-time" ? u"T" : u"");
      while (text.size() < kUnits) {
        text += piece;
      }
      const auto ofBeginning = parsed(type, TextView(text).substr(0, 64));
      const auto ofAll = parsed(type, text);
      EXPECT_EQ(ofAll->comps(), ofBeginning->comps()) << utf8FromText(piece);
      EXPECT_EQ(written(*ofAll, 4), written(*ofBeginning, 4));
    }
  }
}

TEST(DateTimeValueDeathTest, stopsTheProcessWithoutAFormatter) {
  VCardDateTimeValue value;
  Text output;
  EXPECT_DEATH(value.parse(u"2024", 4, nullptr), "Formatter is nil");
  EXPECT_DEATH(value.generate(output, 4, nullptr), "Date formatter is nil!");
}

} // namespace
} // namespace cardwright
