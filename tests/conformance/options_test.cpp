#include "conformance/options.h"

#include <gtest/gtest.h>

#include <array>

namespace cardwright::conformance {
namespace {

TEST(Options, haveDefaults) {
  const auto options = optionsFromArguments({});
  ASSERT_TRUE(options);
  EXPECT_EQ(options->folder, std::nullopt);
  EXPECT_TRUE(options->only.empty());
  EXPECT_EQ(options->differences, 3U);
}

TEST(Options, areReadInAnyOrder) {
  constexpr std::array kArguments{"--only", "a", "folder", "--differences", "10", "--only", "b"};
  const auto options = optionsFromArguments(kArguments);
  ASSERT_TRUE(options);
  EXPECT_EQ(options->folder, "folder");
  EXPECT_EQ(options->only, (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(options->differences, 10U);
}

TEST(Options, rejectWhatMeansNothing) {
  EXPECT_FALSE(optionsFromArguments(std::array{"--only"}));
  EXPECT_FALSE(optionsFromArguments(std::array{"--differences"}));
  EXPECT_FALSE(optionsFromArguments(std::array{"--differences", "x"}));
  EXPECT_FALSE(optionsFromArguments(std::array{"--differences", "-1"}));
  EXPECT_FALSE(optionsFromArguments(std::array{"--bogus"}));
  EXPECT_FALSE(optionsFromArguments(std::array{"one", "two"}));
}

} // namespace
} // namespace cardwright::conformance
