#include "base/fatal.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright {
namespace {

TEST(FatalErrorDeathTest, endsTheProcessWithItsMessage) {
  EXPECT_DEATH(fatalError("Formatter is nil"), "^cardwright: Formatter is nil\n$");
}

TEST(FatalErrorDeathTest, takesAViewWithoutAZeroBehindIt) {
  const std::string message = "Date formatter is nil!, and more";
  EXPECT_DEATH(fatalError(std::string_view(message).substr(0, 22)),
               "^cardwright: Date formatter is nil!\n$");
}

} // namespace
} // namespace cardwright
