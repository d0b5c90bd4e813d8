#include "conformance/shortened.h"

#include <gtest/gtest.h>

namespace cardwright::conformance {
namespace {

TEST(Shortened, keepsAShortString) {
  EXPECT_EQ(shortened("0123456789", 9, 10), "0123456789");
}

TEST(Shortened, cutsAroundThePlace) {
  EXPECT_EQ(shortened("0123456789", 0, 4), "0123 … (10 characters)");
  EXPECT_EQ(shortened("0123456789", 5, 4), "… 3456 … (10 characters)");
  EXPECT_EQ(shortened("0123456789", 10, 4), "… 6789 (10 characters)");
}

TEST(FirstMismatch, isTheEndOfTheCommonStart) {
  EXPECT_EQ(firstMismatch("abc", "abd"), 2U);
  EXPECT_EQ(firstMismatch("abc", "ab"), 2U);
  EXPECT_EQ(firstMismatch("", "ab"), 0U);
}

} // namespace
} // namespace cardwright::conformance
