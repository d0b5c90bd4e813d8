#include "base/ascii.h"
#include "base/case.h"
#include "cardwright/vcard_cleaner.h"
#include "support/icu_pattern.h"
#include "support/reference_predicates.h"
#include "support/text_printer.h"
#include "support/token_texts.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace cardwright {
namespace {

const std::vector<TextView> kSigns{u":", u"\"", u";",  u".",  u"\\",     u"=",      u" ",
                                   u"-", u"a",  u"\r", u"\n", u"\u0301", u"\u0600", u"\u00A0"};
constexpr std::size_t kLongestOfSigns = 5;

TEST(LinePredicates, agreeWithTheReferenceOnAllShortTextsOfSigns) {
  ReferencePredicates reference;
  const std::size_t visited = forEachTextOf(kSigns, kLongestOfSigns, [&](const Text& line) {
    ASSERT_EQ(VCardCleaner::firstUnquotedColonIndex(line), reference.firstColon(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::propertyNameUpper(line), reference.name(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::lineHasQuotedPrintableSoftBreak(line), reference.hasSoftBreak(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(line),
              reference.withoutSoftBreak(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::isPlausiblePropertyHeader(line), reference.isPlausible(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::trimTrailingWhitespace(line), reference.trimmed(line))
        << testing::PrintToString(line);
  });
  EXPECT_EQ(visited, 1U + 14U + 196U + 2744U + 38416U + 537824U);
}

TEST(LinePredicates, agreeWithTheReferenceOnAllShortTextsOfWords) {
  const std::vector<TextView> kWords{u"http",   u"://", u":",   u"mailto", u"sip",
                                     u"URN",    u"X-",  u"URL", u"tel",    u";",
                                     u"item1.", u" ",   u"\n",  u"é",      u"\u0301"};
  ReferencePredicates reference;
  IcuPattern allowed(VCardCleaner::allowedHeaderRegex());
  IcuPattern anyUpper(VCardCleaner::anyUpperHeaderRegex());
  forEachTextOf(kWords, 4, [&](const Text& line) {
    ASSERT_EQ(VCardCleaner::lineLooksLikeStandaloneUriContinuation(line),
              reference.isUriContinuation(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::isPlausiblePropertyHeader(line), reference.isPlausible(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::propertyNameUpper(line), reference.name(line))
        << testing::PrintToString(line);
    for (auto* engine : {&allowed, &anyUpper}) {
      ASSERT_EQ(engine == &allowed ? VCardCleaner::startsWithAllowedHeader(line)
                                   : VCardCleaner::startsWithAnyHeader(line),
                ReferencePredicates::startsWith(*engine, line))
          << testing::PrintToString(line);
    }
  });
}

/// Whether some part of the text, cut between characters, folds to the same as the other one.
bool containsByFolding(TextView text, TextView part) {
  const auto isInsideAPair = [text](std::size_t at) {
    return at > 0 && at < text.size() && isHighSurrogate(text[at - 1]) && isLowSurrogate(text[at]);
  };
  for (std::size_t begin = 0; begin <= text.size(); ++begin) {
    for (std::size_t end = begin; end <= text.size(); ++end) {
      if (!isInsideAPair(begin) && !isInsideAPair(end) &&
          equalIgnoringCase(text.substr(begin, end - begin), part)) {
        return true;
      }
    }
  }
  return false;
}

TEST(LinePredicates, findTextsLikeTheReference) {
  const std::vector<TextView> kLetters{u"f", u"I", u"s", u"\uFB01", u"\u00DF", u"\U00010400"};
  forEachTextOf(kLetters, 4, [&](const Text& text) {
    forEachTextOf(kLetters, 2, [&](const Text& part) {
      ASSERT_EQ(VCardCleaner::fastContains(text, part), containsByFolding(text, part))
          << testing::PrintToString(text) << " " << testing::PrintToString(part);
    });
  });
}

} // namespace
} // namespace cardwright
