#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "support/value_texts.h"
#include "values/source_text.h"

#include <gtest/gtest.h>

namespace cardwright {
namespace {

TEST(SourceText, isKeptOfWhatIsNotOrdinary) {
  EXPECT_FALSE(SourceText::of(*parsed<VCardUTCOffsetValue>(u"+05:30")));
  EXPECT_EQ(SourceText::of(*parsed<VCardUTCOffsetValue>(u"EST")), u"EST");
  EXPECT_FALSE(SourceText::of(*parsed<VCardGeoValue>(u"1.5;-2")));
  EXPECT_EQ(SourceText::of(*parsed<VCardGeoValue>(u"1.5;-2 ")), u"1.5;-2 ");
  EXPECT_EQ(SourceText::of(*parsed<VCardDateTimeValue>(u"T10")), u"T10");
  EXPECT_FALSE(SourceText::of(*parsed<VCardTextValue>(u"a")));
}

TEST(SourceText, isForgottenByEverySetter) {
  const auto offset = parsed<VCardUTCOffsetValue>(u"EST");
  offset->setOffset(0);
  EXPECT_FALSE(SourceText::of(*offset));
  const auto position = parsed<VCardGeoValue>(u"1;x");
  position->setLongitude(0);
  EXPECT_FALSE(SourceText::of(*position));
  for (const auto change : {+[](VCardDateTimeValue& date) { date.setComps({}); },
                            +[](VCardDateTimeValue& date) { date.parseDate(u"2024"); },
                            +[](VCardDateTimeValue& date) { date.parseTime(u"10"); }}) {
    const auto date = parsed<VCardDateTimeValue>(u"then");
    change(*date);
    EXPECT_FALSE(SourceText::of(*date));
  }
}

TEST(SourceText, knowsOrdinaryDates) {
  for (const TextView text : {u"2024-02-29", u"20240228", u"1583-01-01", u"2000-12-31"}) {
    EXPECT_TRUE(isOrdinaryDate(text));
    EXPECT_FALSE(isOrdinaryDateTime(text));
  }
  for (const TextView text :
       {u"", u"2024", u"2023-02-29", u"20240431", u"2024-13-01", u"2024-0101", u"202401-01",
        u"1582-01-01", u"2024-01-01 ", u"--0101", u"2024-01-00"}) {
    EXPECT_FALSE(isOrdinaryDate(text));
  }
  for (const TextView text : {u"2024-01-01T10:00:00Z", u"20240101T100000", u"20240101T100000+0530",
                              u"2024-01-01T23:59:59-17:59"}) {
    EXPECT_TRUE(isOrdinaryDateTime(text));
    EXPECT_FALSE(isOrdinaryDate(text));
  }
  for (const TextView text :
       {u"2024-01-01T24:00:00", u"2024-01-01T10:00", u"2024-01-01T10:0000", u"2024-01-01 10:00:00",
        u"2024-01-01T10:00:00.5", u"2024-01-01T10:00:00+00:00", u"2024-01-01T10:00:00+18:00",
        u"2024-01-01T10:00:00+5", u"2024-01-01T10:00:00ZZ", u"2024-01-01T"}) {
    EXPECT_FALSE(isOrdinaryDateTime(text));
  }
}

TEST(SourceText, knowsOrdinaryOffsetsAndPositions) {
  for (const TextView text : {u"+05:30", u"-0530", u"+00:00", u"+99:59"}) {
    EXPECT_TRUE(isOrdinaryOffset(text));
  }
  for (const TextView text : {u"", u"0530", u"+5", u"+05:60", u"+05:30 ", u"+123:00", u"Z"}) {
    EXPECT_FALSE(isOrdinaryOffset(text));
  }
  for (const TextView text : {u"1;2", u"-1.5;+2.123456", u"180.0,90"}) {
    EXPECT_TRUE(isOrdinaryPosition(text));
  }
  for (const TextView text :
       {u"", u"1", u"1;", u";2", u"1.1234567;2", u"1234;2", u".5;2", u"1;2;3", u"1e2;3", u"1; 2"}) {
    EXPECT_FALSE(isOrdinaryPosition(text));
  }
}

} // namespace
} // namespace cardwright
