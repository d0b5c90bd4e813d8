#include "base/numbers.h"
#include "support/seed.h"
#include "support/text_printer.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <charconv>
#include <clocale>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace cardwright {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(LeadingNumber, readsWhatATextBeginsWith) {
  struct Row {
    TextView text;
    double number;
  };
  constexpr Row kRows[] = {
      {u"", 0},
      {u"4.0", 4},
      {u"2.1", 2.1},
      {u"37.386013", 37.386013},
      {u"-122.082932", -122.082932},
      {u"+7", 7},
      {u"007", 7},
      {u" \t\u3000 5", 5},
      {u"3.0 and more", 3},
      {u"4,5", 4},
      {u"1.2.3", 1.2},
      {u".5", 0.5},
      {u"-.5", -0.5},
      {u"5.", 5},
      {u"5.e1", 50},
      {u"1e3", 1000},
      {u"1E+3", 1000},
      {u"15e-1", 1.5},
      {u"1e", 1},
      {u"1e+", 1},
      {u"1e-x", 1},
      {u"1e 3", 1},
      {u".", 0},
      {u"-", 0},
      {u"+-5", 0},
      {u"- 5", 0},
      {u".e5", 0},
      {u"e5", 0},
      {u"v4.0", 0},
      {u"0x10", 0},
      {u"inf", 0},
      {u"infinity", 0},
      {u"nan", 0},
      {u"1_000", 1},
      {u"\u0661\u0662", 0},
      {u"1\u0662", 1},
      {u"1\u0301", 1},
      {u"1e400", kInfinity},
      {u"-1e400", -kInfinity},
      {u"1e99999999999999999999", kInfinity},
      {u"1e-400", 0},
      {u"0e99999999999999999999", 0},
      {u"4.9406564584124654e-324", 4.9406564584124654e-324},
      {u"1.7976931348623157e308", std::numeric_limits<double>::max()},
      {u"9007199254740993", 9007199254740992.0},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(leadingNumber(row.text), row.number) << testing::PrintToString(row.text);
  }
}

TEST(LeadingNumber, keepsTheSignOfZero) {
  EXPECT_TRUE(std::signbit(leadingNumber(u"-0.0")));
  EXPECT_FALSE(std::signbit(leadingNumber(u"0.0")));
  EXPECT_FALSE(std::signbit(leadingNumber(u"-")));
}

TEST(LeadingNumber, stopsAtAZeroUnitAndAtLoneSurrogates) {
  EXPECT_EQ(leadingNumber(TextView(u"1\0002", 3)), 1);
  EXPECT_EQ(leadingNumber(Text{u'3', char16_t{0xD800}, u'4'}), 3);
  EXPECT_EQ(leadingNumber(Text{char16_t{0xDC00}, u'4'}), 0);
}

TEST(LeadingNumber, dependsOnNoLocaleOfTheEnvironment) {
  for (const char* locale : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "ar_EG.UTF-8", "C"}) {
    const char* set = std::setlocale(LC_ALL, locale);
    EXPECT_EQ(leadingNumber(u"1.5"), 1.5) << (set != nullptr ? set : locale);
    EXPECT_EQ(leadingNumber(u"1,5"), 1) << (set != nullptr ? set : locale);
  }
  std::setlocale(LC_ALL, "C");
}

TEST(LeadingNumber, agreesWithThePlainReaderOfTheLibrary) {
  std::mt19937_64 random(testSeed());
  const std::string alphabet = "0123456789.e-+x";
  for (int i = 0; i < 200'000; ++i) {
    std::string text;
    for (std::size_t length = random() % 12; length > 0; --length) {
      text.push_back(alphabet[random() % alphabet.size()]);
    }
    // from_chars knows no plus sign in front.
    std::string_view rest = text;
    if (rest.starts_with('+')) {
      rest.remove_prefix(rest.substr(1, 1) == "-" ? rest.size() : 1);
    }
    double expected = 0;
    const auto result = std::from_chars(rest.data(), rest.data() + rest.size(), expected);
    if (result.ec == std::errc::result_out_of_range) {
      continue;
    }
    ASSERT_EQ(leadingNumber(Text(text.begin(), text.end())), expected) << text;
  }
}

TEST(LeadingNumber, readsEveryDoubleBack) {
  std::mt19937_64 random(testSeed());
  for (int i = 0; i < 100'000; ++i) {
    const auto number = std::bit_cast<double>(random());
    if (!std::isfinite(number)) {
      continue;
    }
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    ASSERT_EQ(leadingNumber(Text(buffer.data(), result.ptr)), number);
  }
}

TEST(LeadingNumber, takesLinearTime) {
  for (const Text& piece : {Text(u"9"), Text(u"0"), Text(u"1"), Text(u" "), Text(u".")}) {
    for (const Text& front : {Text(), Text(u"0."), Text(u"-1."), Text(u"1e"), Text(u"1e-")}) {
      expectLinear(500'000, [&](std::size_t size) {
        Text text = front;
        text.append(size, piece.front());
        EXPECT_FALSE(std::isnan(leadingNumber(text)));
      });
    }
  }
}

} // namespace
} // namespace cardwright
