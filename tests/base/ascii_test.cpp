#include "base/ascii.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace cardwright {
namespace {

TEST(Ascii, knowsTheUnitsOfNames) {
  for (std::uint32_t value = 0; value < 0x10000; ++value) {
    const auto unit = static_cast<char16_t>(value);
    ASSERT_EQ(isAsciiNameUnit(unit), isAsciiLetter(unit) || isAsciiDigit(unit) || unit == u'-')
        << value;
  }
}

} // namespace
} // namespace cardwright
