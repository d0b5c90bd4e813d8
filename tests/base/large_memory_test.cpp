#include "base/large_memory.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

namespace cardwright {
namespace {

constexpr std::size_t kMegabyte = std::size_t{1} << 20U;

TEST(LargeMemory, makesRoomWithoutElements) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, kMegabyte, 4 * kMegabyte,
                                 4 * kMegabyte + 1, 9 * kMegabyte}) {
    std::u16string text;
    reserveLarge(text, size);
    EXPECT_GE(text.capacity(), size);
    EXPECT_TRUE(text.empty());
    std::vector<int> numbers;
    reserveLarge(numbers, size);
    EXPECT_GE(numbers.capacity(), size);
    EXPECT_TRUE(numbers.empty());
  }
}

TEST(LargeMemory, keepsWhatIsThereWhenItGrows) {
  std::vector<unsigned> numbers(3 * kMegabyte);
  std::iota(numbers.begin(), numbers.end(), 0U);
  reserveLarge(numbers, 8 * kMegabyte);
  ASSERT_EQ(numbers.size(), 3 * kMegabyte);
  for (unsigned i = 0; i < numbers.size(); ++i) {
    ASSERT_EQ(numbers[i], i);
  }
}

TEST(LargeMemory, changesNothingInMemoryOfAnyPlace) {
  std::string bytes(13 * kMegabyte, 'x');
  for (const std::size_t offset : {std::size_t{0}, std::size_t{1}, std::size_t{4095}, kMegabyte}) {
    useLargePages(bytes.data() + offset, bytes.size() - offset);
  }
  EXPECT_EQ(bytes.find_first_not_of('x'), std::string::npos);
}

} // namespace
} // namespace cardwright
