#include "cardwright/vcard_cleaner.h"
#include "cleaner/matching/extended_names.h"
#include "cleaner/matching/header_scanner.h"
#include "cleaner/matching/letters.h"
#include "support/icu_pattern.h"
#include "support/line_generator.h"
#include "support/random_source.h"
#include "support/seed.h"
#include "support/text_printer.h"
#include "support/time_growth.h"
#include "support/token_texts.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <array>
#include <cstdint>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace cardwright {

static void PrintTo(const CleanerPattern::Match& match, std::ostream* stream) {
  *stream << match.range.location << "+" << match.range.length;
  if (match.capture) {
    *stream << "(" << match.capture->location << "+" << match.capture->length << ")";
  }
}

namespace {

using Match = CleanerPattern::Match;
using Matches = std::vector<Match>;

std::string printed(TextView text) {
  std::ostringstream result;
  for (const char16_t unit : text) {
    if (unit >= 0x20 && unit < 0x7F) {
      result << static_cast<char>(unit);
    } else {
      result << "\\u" << std::hex << std::setw(4) << std::setfill('0')
             << static_cast<unsigned>(unit);
    }
  }
  return result.str();
}

Text textOf(char32_t codePoint) {
  if (codePoint < 0x10000) {
    return {static_cast<char16_t>(codePoint)};
  }
  return {static_cast<char16_t>(0xD7C0U + (codePoint >> 10U)),
          static_cast<char16_t>(0xDC00U + (codePoint & 0x3FFU))};
}

/// How many lines are generated: CARDWRIGHT_LINES of the environment, else enough for every day.
/// Our scanners beside ICU's engine for the same texts of patterns.
class Engines {
 public:
  Engines() {
    for (const CleanerPattern* pattern :
         {&VCardCleaner::groupPrefixRegex(), &VCardCleaner::danglingFragmentRegex(),
          &VCardCleaner::trailingExtendedHeaderFragmentRegex(), &VCardCleaner::allowedHeaderRegex(),
          &VCardCleaner::anyUpperHeaderRegex(), &VCardCleaner::allowlistPatternRegexes().front()}) {
      m_pairs.emplace_back(pattern, IcuPattern(*pattern));
    }
  }

  /// What is different, or nothing.
  std::string difference(TextView line) {
    for (auto& [ours, theirs] : m_pairs) {
      const auto expected = theirs.matches(line);
      if (!expected) {
        return "the engine gave up on " + printed(line);
      }
      const Matches found = ours->matches(line);
      const auto first = ours->firstMatch(line);
      const bool firstAgrees = found.empty() ? !first : first == found.front();
      if (found != *expected || !firstAgrees) {
        return printed(line) + "\n for " + printed(ours->pattern()).substr(0, 60) + "\n found " +
               testing::PrintToString(found) + "\n expected " + testing::PrintToString(*expected);
      }
    }
    const auto labels = m_itemLabel.matches(line);
    const auto label = findItemLabel(line);
    if (labels->empty() ? label.has_value() : label != labels->front().range) {
      return "label in " + printed(line);
    }
    if (isUriScheme(line) == m_scheme.matches(line)->empty()) {
      return "scheme in " + printed(line);
    }
    return {};
  }

 private:
  std::vector<std::pair<const CleanerPattern*, IcuPattern>> m_pairs;
  IcuPattern m_itemLabel{u"(?i)(item[0-9]{1,4})\\.", false};
  IcuPattern m_scheme{u"^[A-Za-z][A-Za-z0-9+.-]*$", false};
};

TEST(Matching, agreesWithIcuOnGeneratedLines) {
  const std::uint64_t seed = testSeed();
  const std::uint64_t lines =
      environmentNumber("CARDWRIGHT_LINES", kTimesAreMeaningful ? 200'000 : 20'000);
  std::cout << "seed " << seed << ", " << lines << " lines\n";
  Engines engines;
  LineGenerator generator(seed);
  std::size_t headers = 0;
  for (std::uint64_t i = 0; i < lines; ++i) {
    const Text line = generator.line();
    headers += VCardCleaner::anyUpperHeaderRegex().firstMatch(line) ? 1U : 0U;
    ASSERT_EQ(engines.difference(line), "") << "line " << i;
  }
  // Lines without headers would show nothing.
  EXPECT_GT(headers * 2, lines);
}

TEST(Matching, agreesWithIcuOnAllShortSequencesOfTokens) {
  const std::vector<TextView> tokens{u"X-", u"VND-", u"N", u"TEL", u";",  u"\\;", u"A=",
                                     u"\"", u":",    u".", u"a",   u"\r", u"ß"};
  Engines engines;
  forEachTextOf(tokens, 5, [&](const Text& line) { ASSERT_EQ(engines.difference(line), ""); });
}

TEST(Matching, agreesWithIcuOnEveryCharacterInEveryPlace) {
  Engines engines;
  for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
    if (codePoint > 0xFFFF && codePoint % 251 != 0) {
      continue;
    }
    const Text character = textOf(codePoint);
    for (const TextView place :
         {u"@.TEL:", u"a@.TEL;A@=@:", u"@:", u"X-@", u"N;@=@:", u"X-A;@  @", u"TEL@:"}) {
      Text line;
      for (const char16_t unit : place) {
        line += unit == u'@' ? TextView(character) : TextView(&unit, 1);
      }
      ASSERT_EQ(engines.difference(line), "");
    }
  }
}

TEST(Matching, hasTheGroupsThatThePatternsHave) {
  for (const CleanerPattern* pattern :
       {&VCardCleaner::groupPrefixRegex(), &VCardCleaner::danglingFragmentRegex(),
        &VCardCleaner::trailingExtendedHeaderFragmentRegex(), &VCardCleaner::allowedHeaderRegex(),
        &VCardCleaner::anyUpperHeaderRegex(), &VCardCleaner::allowlistPatternRegexes().front()}) {
    EXPECT_EQ(pattern->numberOfCaptureGroups(),
              static_cast<std::size_t>(IcuPattern(*pattern).numberOfCaptureGroups()));
  }
}

TEST(AsciiFolding, knowsEveryLetterThatFoldsToAscii) {
  for (char32_t codePoint = 0x80; codePoint <= 0x10FFFF; ++codePoint) {
    const Text source = textOf(codePoint);
    std::array<UChar, 8> folded{};
    UErrorCode status = U_ZERO_ERROR;
    const int32_t foldedLength =
        u_strFoldCase(folded.data(), 8, reinterpret_cast<const UChar*>(source.data()),
                      static_cast<int32_t>(source.size()), U_FOLD_CASE_DEFAULT, &status);
    Text expected;
    for (int32_t i = 0; i < foldedLength; ++i) {
      expected += asciiUpper(folded[static_cast<std::size_t>(i)]);
    }
    const bool isAsciiFolding =
        std::all_of(expected.begin(), expected.end(), [](char16_t unit) { return isAscii(unit); });
    const TextView found = source.size() == 1 ? asciiFolding(source.front()) : TextView();
    ASSERT_EQ(found, isAsciiFolding ? TextView(expected) : TextView()) << printed(source);
  }
}

} // namespace
} // namespace cardwright
