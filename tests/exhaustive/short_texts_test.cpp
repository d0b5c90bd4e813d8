#include "exhaustive/short_texts.h"

#include <gtest/gtest.h>

#include <set>

namespace cardwright {
namespace {

TEST(ShortTexts, areAllThereIsAndDiffer) {
  std::set<Text> seen;
  EXPECT_EQ(forEachShortText([&seen](const Text& text) { seen.insert(text); }, 4), 22621U);
  EXPECT_EQ(seen.size(), 22621U);
  EXPECT_TRUE(seen.contains(u""));
  EXPECT_TRUE(seen.contains(u"\"\r\n1"));
}

} // namespace
} // namespace cardwright
