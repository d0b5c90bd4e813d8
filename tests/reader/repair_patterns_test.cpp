#include "reader/repair_patterns.h"
#include "support/random_source.h"
#include "support/seed.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>
#include <unicode/uregex.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace cardwright {
namespace {

/// Begin and end of a match and of its groups, in code units; -1 for a group that took no part.
using Match = std::vector<std::int64_t>;

/// A pattern as ICU's engine matches it.
class IcuPattern {
 public:
  explicit IcuPattern(TextView pattern) {
    UErrorCode status = U_ZERO_ERROR;
    m_expression.reset(uregex_open(reinterpret_cast<const UChar*>(pattern.data()),
                                   static_cast<int32_t>(pattern.size()), 0, nullptr, &status));
    m_groups = uregex_groupCount(m_expression.get(), &status);
    EXPECT_TRUE(U_SUCCESS(status)) << u_errorName(status);
  }

  std::vector<Match> matches(const Text& text) {
    URegularExpression* expression = m_expression.get();
    UErrorCode status = U_ZERO_ERROR;
    uregex_setText(expression, reinterpret_cast<const UChar*>(text.data()),
                   static_cast<int32_t>(text.size()), &status);
    std::vector<Match> found;
    while (uregex_findNext(expression, &status) != 0) {
      Match& match = found.emplace_back();
      for (int32_t group = 0; group <= m_groups; ++group) {
        match.push_back(uregex_start(expression, group, &status));
        match.push_back(uregex_end(expression, group, &status));
      }
    }
    EXPECT_TRUE(U_SUCCESS(status)) << u_errorName(status);
    return found;
  }

 private:
  struct Close {
    void operator()(URegularExpression* expression) const { uregex_close(expression); }
  };

  std::unique_ptr<URegularExpression, Close> m_expression;
  int32_t m_groups = 0;
};

std::vector<Match> entitiesOf(TextView text) {
  std::vector<Match> found;
  NumericEntity entity{};
  for (std::size_t from = 0; findNumericEntity(text, from, entity); from = entity.end) {
    const std::int64_t digits = entity.digits.data() - text.data();
    const std::int64_t digitsEnd = digits + static_cast<std::int64_t>(entity.digits.size());
    const Match groups =
        entity.isHexadecimal ? Match{digits, digitsEnd, -1, -1} : Match{-1, -1, digits, digitsEnd};
    Match& match = found.emplace_back();
    match = {static_cast<std::int64_t>(entity.begin), static_cast<std::int64_t>(entity.end)};
    match.insert(match.end(), groups.begin(), groups.end());
  }
  return found;
}

std::vector<Match> boundariesOf(TextView text) {
  std::vector<Match> found;
  PropertyBoundaryFinder finder(text);
  for (PropertyBoundary boundary{}; finder.next(boundary);) {
    found.push_back(
        {static_cast<std::int64_t>(boundary.begin), static_cast<std::int64_t>(boundary.end),
         static_cast<std::int64_t>(boundary.headerBegin), static_cast<std::int64_t>(boundary.end)});
  }
  return found;
}

constexpr std::array<TextView, 52> kHeaderPieces = {
    u";",      u";",      u";",      u";;;",
    u":",      u":",      u":",      u".",
    u".",      u"=",      u"\"",     u",",
    u"-",      u"_",      u"0",      u"9",
    u"A",      u"z",      u"TEL",    u"item1.",
    u"g-1_.",  u"X-A",    u"N:",     u";HOME:",
    u"\r\n",   u"\r",     u"\n",     u" ",
    u"  ",     u"\t",     u"\v",     u"\f",
    u"\u0085", u"\u2028", u"\u2029", u"\u00A0",
    u"\u180E", u"\u3000", u"\u200B", u"\uFEFF",
    u"\u017F", u"\u212A", u"\u00DF", u"\u0130",
    u"\uFF21", u"\u0660", u"\u00E9", u"\U0001F600",
    u"@",      u"[",      u"`",      u"X-ADDRESSBOOKSERVER-M:"};

constexpr std::array<TextView, 32> kEntityPieces = {
    u"&#", u"&#", u"&#", u"&#x",    u"&#X",    u"&",      u"#",     u"x",
    u"X",  u";",  u";",  u";",      u";",      u"0",      u"1",     u"9",
    u"a",  u"f",  u"F",  u"g",      u"G",      u"@",      u"`",     u"/",
    u":",  u" ",  u"-",  u"\uFF10", u"\u0661", u"\uFF21", u"&#65;", u"&#x1F600;"};

/// A short line of such pieces, and now and then a lone surrogate.
template <std::size_t N>
void fill(Text& line, const std::array<TextView, N>& pieces, RandomSource& random) {
  line.clear();
  for (std::size_t count = random.below(15); count > 0; --count) {
    if (random.oneIn(40)) {
      line.push_back(static_cast<char16_t>(0xD800 + random.below(0x800)));
    } else {
      line += random.oneOf(pieces);
    }
  }
}

template <typename Fill>
void expectAgreement(TextView pattern, std::vector<Match> (*find)(TextView), Fill fillLine) {
  const std::uint64_t seed = testSeed();
  const std::uint64_t lines = environmentNumber("CARDWRIGHT_LINES", 200'000);
  std::cout << lines << " lines from seed " << seed << "\n";
  RandomSource random(seed);
  IcuPattern icu(pattern);
  Text line;
  std::uint64_t matching = 0;
  for (std::uint64_t i = 0; i < lines; ++i) {
    fillLine(line, random);
    const std::vector<Match> expected = icu.matches(line);
    matching += expected.empty() ? 0 : 1;
    ASSERT_EQ(find(line), expected)
        << "line " << i << " from seed " << seed << ": " << ::testing::PrintToString(line);
  }
  // Lines that never match would prove little.
  EXPECT_GT(matching, lines / 10);
}

TEST(RepairPatterns, findNumericEntitiesLikeTheCompiledPattern) {
  expectAgreement(kNumericEntityPattern, entitiesOf,
                  [](Text& line, RandomSource& random) { fill(line, kEntityPieces, random); });
}

TEST(RepairPatterns, findPropertyBoundariesLikeTheCompiledPattern) {
  expectAgreement(kPropertyBoundaryPattern, boundariesOf,
                  [](Text& line, RandomSource& random) { fill(line, kHeaderPieces, random); });
}

TEST(RepairPatterns, matchParametersOneByOneAtTheSamePlaces) {
  // The engine tries every way to share out semicolons between turns of the loop.
  constexpr TextView kOneByOne =
      u"(?i)(?:^|[;\\r\\n]\\s*)((?:[A-Z0-9_-]+\\.)?[A-Z0-9_-]+(?:;[^:\\r\\n]*)*:)";
  expectAgreement(kOneByOne, boundariesOf, [](Text& line, RandomSource& random) {
    do {
      fill(line, kHeaderPieces, random);
    } while (std::count(line.begin(), line.end(), u';') > 8);
  });
}

TEST(RepairPatterns, agreeOnEveryShortLineOfTheirOwnSigns) {
  constexpr TextView kEntitySigns = u"&#xX;1aG";
  constexpr TextView kHeaderSigns = u"A.;: \r\n\u017F";
  IcuPattern entities(kNumericEntityPattern);
  IcuPattern boundaries(kPropertyBoundaryPattern);
  for (std::size_t length = 0; length <= 6; ++length) {
    std::size_t lines = 1;
    for (std::size_t i = 0; i < length; ++i) {
      lines *= kEntitySigns.size();
    }
    for (std::size_t number = 0; number < lines; ++number) {
      Text entityLine;
      Text headerLine;
      for (std::size_t rest = number; entityLine.size() < length; rest /= kEntitySigns.size()) {
        entityLine.push_back(kEntitySigns[rest % kEntitySigns.size()]);
        headerLine.push_back(kHeaderSigns[rest % kHeaderSigns.size()]);
      }
      ASSERT_EQ(entitiesOf(entityLine), entities.matches(entityLine));
      ASSERT_EQ(boundariesOf(headerLine), boundaries.matches(headerLine));
    }
  }
}

} // namespace
} // namespace cardwright
