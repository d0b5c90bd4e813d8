#pragma once

#include "cardwright/face.h"
#include "support/afresh.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace cardwright {

/// Expects that writeCards writes cards, and reports of them, as it does of cards with the same
/// properties of which nothing is known of lines that they were read from.
inline void expectSameWritingWithoutLines(const VCardList& cards) {
  VCardList others;
  for (const auto& card : cards) {
    others.push_back(afresh(*card));
  }
  const auto changesOf = [](const WriteReport& report) {
    std::vector<std::tuple<WriteChangeKind, std::size_t, std::string, std::string>> changes;
    for (const WriteChange& change : report.changes) {
      changes.emplace_back(change.kind, change.card, change.property, change.text);
    }
    return changes;
  };
  for (const VersionCode version : {0, 2, 3, 4}) {
    WriteReport report;
    WriteReport expected;
    ASSERT_EQ(writeCards(cards, &report, {version}), writeCards(others, &expected, {version}));
    ASSERT_EQ(report.cards, expected.cards);
    ASSERT_EQ(report.properties, expected.properties);
    ASSERT_EQ(report.dropped, expected.dropped);
    ASSERT_EQ(changesOf(report), changesOf(expected));
  }
}

} // namespace cardwright
