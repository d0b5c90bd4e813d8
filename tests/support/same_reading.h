#pragma once

#include "cardwright/read_report.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace cardwright {

inline void expectSameReading(const ReadReport& actual, const ReadReport& expected) {
  EXPECT_EQ(actual.cards, expected.cards);
  EXPECT_EQ(actual.properties, expected.properties);
  EXPECT_EQ(actual.decoding.encoding, expected.decoding.encoding);
  EXPECT_EQ(actual.decoding.droppedBytes, expected.decoding.droppedBytes);
  EXPECT_EQ(actual.summaries, expected.summaries);
  EXPECT_EQ(actual.repairs.size(), expected.repairs.size());
  EXPECT_EQ(actual.foreignLine.has_value(), expected.foreignLine.has_value());
  EXPECT_TRUE(std::equal(
      actual.droppedLines.begin(), actual.droppedLines.end(), expected.droppedLines.begin(),
      expected.droppedLines.end(), [](const DroppedLine& one, const DroppedLine& other) {
        return one.reason == other.reason && one.place == other.place && one.text == other.text;
      }));
}

} // namespace cardwright
