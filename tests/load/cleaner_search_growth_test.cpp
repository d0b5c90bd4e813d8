#include "cardwright/vcard_cleaner.h"
#include "cleaner/matching/header_scanner.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <string>

namespace cardwright {
namespace {

constexpr double kLimit = 5; // for a text of four times the size

/// A text made of one piece over and over, between a beginning and an end.
struct HostileText {
  const char* name;
  TextView beginning;
  TextView piece;
  TextView end;
};

void PrintTo(const HostileText& hostile, std::ostream* stream) {
  *stream << hostile.name;
}

const HostileText kHostileTexts[] = {
    {"extensions", u"", u"X-A;", u""},
    {"extensions with a colon", u"", u"X-A;", u":"},
    {"extensions and blanks", u"", u"X-A; ", u"    "},
    {"prefixes", u"", u"X-", u""},
    {"prefixes with a colon", u"", u"X-", u":"},
    {"prefixes with a semicolon", u"", u"X-", u";"},
    {"numbered prefixes", u"", u"VND-1", u":"},
    {"names with parameters", u"", u"N;A=b", u""},
    {"names with parameters and a colon", u"", u"N;A=b", u":"},
    {"names with broken parameters", u"", u"N;A=b;C", u":"},
    {"names with escaped parameters", u"", u"N\\;A=b", u""},
    {"names with quotes", u"", u"N;A=\"b\"", u""},
    {"names with open quotes", u"", u"N;A=\"b", u""},
    {"names with quotes in both phases", u"", u"N;A=\"N;B=c\"\"", u":"},
    {"labels", u"", u"item1.", u""},
    {"labels and a header", u"", u"item1.", u"TEL:1"},
    {"names", u"", u"TEL;", u""},
    {"names and quotes", u"", u"TEL;\"a\"", u""},
    {"names and open quotes", u"", u"TEL;\"", u""},
    {"names in lines", u"", u"TEL;\r\n", u":"},
    {"an open quote", u"TEL;\"", u"X-A;", u""},
    {"one long extension", u"X-", u"A", u";"},
    {"one long number", u"VND-", u"1", u"-SENSITIVE-CONTENT-CONFIG:"},
    {"one long label", u"", u"a-1", u".TEL:"},
    {"numbered names without a number", u"", u"-SENSITIVE-CONTENT-CONFIG:", u""},
    {"headers", u"", u"TEL:1", u""},
    {"headers behind labels", u"", u"a.TEL:", u""},
    {"colons", u"", u":", u""},
    {"semicolons", u"", u";", u""},
    {"quotes", u"", u"\"", u":"},
    {"sharp s", u"", u"\u00DF", u":"},
    {"ligatures", u"", u"\uFB06", u";"},
    {"long s", u"", u"\u017F", u".TEL:"},
    {"entities", u"", u"&#13;", u""},
    {"prose", u"NOTE:", u"Call me, or write: x-ray is an X-FOO; see http://x/ ", u""},
    {"fragments", u"a", u"X-ABLABEL ", u""},
    {"fragments with parameters", u"a", u"X-A;b", u"\r\n"},
    {"blanks", u"a", u" ", u""},
    {"blanks of every kind", u"a", u" \t\u00A0\u2028\r\n", u""},
    {"carriage returns", u"a=", u"\r", u""},
    {"joined blanks", u"a", u"\u0600 ", u""},
    {"colons with marks", u"a", u":\u0301", u""},
    {"quotes with marks", u"a", u"\"\u0301:", u""},
    {"signs behind prepended ones", u"a", u"\u0600;\u0600.\u0600:", u""},
    {"flags", u"", u"\U0001F1E9", u":"},
    {"pictures", u"", u"\U0001F468\u200D", u":"},
    {"conjuncts", u"", u"\u0915\u094D", u":"},
    {"dots", u"", u".", u":"},
    {"equal signs", u"", u"=", u""},
};

Text textOfSize(const HostileText& hostile, std::size_t size) {
  Text text(hostile.beginning);
  text.reserve(size + 64);
  while (text.size() < size) {
    text += hostile.piece;
  }
  text += hostile.end;
  return text;
}

/// Asks everything that the cleaner asks of a line; the sum keeps the compiler from leaving it out.
std::size_t askEverything(const Text& line) {
  std::size_t sum = 0;
  for (const HeaderNames names : {HeaderNames::allowed, HeaderNames::anyUpper}) {
    // Not as a list: at this size the pages of its memory cost more than the matches.
    HeaderScanner scanner(line, names);
    while (scanner.next()) {
      ++sum;
    }
  }
  for (const CleanerPattern* pattern :
       {&VCardCleaner::groupPrefixRegex(), &VCardCleaner::danglingFragmentRegex(),
        &VCardCleaner::trailingExtendedHeaderFragmentRegex(),
        &VCardCleaner::allowlistPatternRegexes().front()}) {
    sum += pattern->matches(line).size();
  }
  sum += VCardCleaner::firstUnquotedColonIndex(line).value_or(1);
  sum += VCardCleaner::propertyNameUpper(line) ? 1U : 0U;
  sum += VCardCleaner::fastContains(line, u"TEL;TEL;X") ? 1U : 0U;
  sum += static_cast<std::size_t>(VCardCleaner::countColonsIn(line));
  sum += VCardCleaner::trimTrailingWhitespace(line).size();
  sum += VCardCleaner::isAllowlistedProperty(line) ? 1U : 0U;
  sum += VCardCleaner::startsWithAllowedHeader(line) ? 1U : 0U;
  sum += VCardCleaner::startsWithAnyHeader(line) ? 1U : 0U;
  sum += VCardCleaner::lineUsesQuotedPrintable(line) ? 1U : 0U;
  sum += VCardCleaner::lineHasQuotedPrintableSoftBreak(line) ? 1U : 0U;
  sum += VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(line).size();
  sum += VCardCleaner::lineLooksLikeStandaloneUriContinuation(line) ? 1U : 0U;
  sum += VCardCleaner::isPlausiblePropertyHeader(line) ? 1U : 0U;
  return sum;
}

class CleanerSearchGrowth : public testing::TestWithParam<HostileText> {};

TEST_P(CleanerSearchGrowth, isLinearUpToFourMillionUnits) {
  const HostileText& hostile = GetParam();
  if (!kTimesAreMeaningful) {
    // Quadratic behaviour still shows: it would take hours.
    EXPECT_GT(askEverything(textOfSize(hostile, 1U << 18U)), 0U);
    return;
  }
  const Text small = textOfSize(hostile, 1U << 20U);
  const Text large = textOfSize(hostile, 1U << 22U);
  std::size_t sum = 0;
  EXPECT_LT(growthBetween([&] { sum += askEverything(small); },
                          [&] { sum += askEverything(large); }, kLimit),
            kLimit);
  EXPECT_GT(sum, 0U);
}

INSTANTIATE_TEST_SUITE_P(HostileTexts, CleanerSearchGrowth, testing::ValuesIn(kHostileTexts),
                         [](const testing::TestParamInfo<HostileText>& parameter) {
                           std::string name = parameter.param.name;
                           for (char& letter : name) {
                             letter = letter == ' ' ? '_' : letter;
                           }
                           return name;
                         });

TEST(LongTextSearchGrowth, isLinearInRepetitions) {
  if (!kTimesAreMeaningful) {
    GTEST_SKIP() << "no times under sanitizers";
  }
  const auto search = [](std::size_t size) {
    return VCardCleaner::fastContains(Text(size, u'a'), Text(size / 2, u'A') + u"b");
  };
  EXPECT_LT(growthBetween([&] { EXPECT_FALSE(search(1U << 20U)); },
                          [&] { EXPECT_FALSE(search(1U << 22U)); }, kLimit),
            kLimit);
}

} // namespace
} // namespace cardwright
