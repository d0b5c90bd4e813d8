#include "base/case.h"
#include "base/graphemes.h"
#include "base/whitespace.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/characters.h"
#include "support/random_source.h"
#include "support/seed.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <array>
#include <utility>

namespace cardwright {
namespace {

using Row = std::pair<TextView, TextView>;

void expectRows(std::initializer_list<Row> rows) {
  for (const auto& [value, trimmed] : rows) {
    EXPECT_EQ(VCardCleaner::trimDanglingExtendedFragmentsInValue(value), trimmed);
  }
}

void expectUntouched(std::initializer_list<TextView> values) {
  for (const TextView value : values) {
    EXPECT_EQ(VCardCleaner::trimDanglingExtendedFragmentsInValue(value), value);
  }
}

TEST(DanglingFragments, cutsGluedNamesOfTheAllowlist) {
  expectRows({{u"Main StreetX-ABLABEL", u"Main Street"},
              {u"Main Streetx-ablabel", u"Main Street"},
              {u"Main StreetX-ABLABEL;type=a;b \t", u"Main Street"},
              {u"Main StreetVND-63-SENSITIVE-CONTENT-CONFIG", u"Main Street"},
              {u"Main StreetVND-7-SENSITIVE-CONTENT-CONFIG;a", u"Main Street"},
              {u".X-ABLABEL", u"."},
              {u" .X-ABLABEL", u" ."}});
}

TEST(DanglingFragments, keepsEverythingElse) {
  expectUntouched({u"", u"Main Street", u"Main Street X-ABLABEL", u"Main Street\nX-ABLABEL",
                   u"Main Street\u00A0X-ABLABEL", u"Main StreetX-FOOBAR", u"X-ABLABEL",
                   u"X-ABLABEL;a=b ", u"aX-AB", u"aVND-SENSITIVE-CONTENT-CONFIG", u"aX-ABLABEL:x",
                   u"aX-ABLABEL;a:b", u"aX-ABLABEL x", u"aX-ABLABEL."});
}

TEST(DanglingFragments, cutsOneFragmentAfterTheOther) {
  expectRows({{u"a.X-ABLABEL.X-ABDATE", u"a.X-ABLABEL."},
              {u"aX-ABLABEL;b;X-ABDATE", u"a"},
              {u"a\u00E9X-ABLABEL\nX-ABDATE", u"a\u00E9X-ABLABEL\nX-ABDATE"},
              {u"a:X-ABLABEL;b:X-ABDATE;c", u"a:X-ABLABEL;b:"},
              {u"aX-ABLABEL \u00E9X-ABDATE", u"aX-ABLABEL \u00E9"},
              // The names are taken for one.
              {u"aX-ABLABELX-ABDATE", u"aX-ABLABELX-ABDATE"}});
}

TEST(DanglingFragments, looksAtTheWholeCharacterBefore) {
  // A blank with a mark is white space, and so is what lies under a joined mark.
  expectUntouched({u"a \u0301X-ABLABEL"});
  expectRows({{u"ae\u0301X-ABLABEL", u"ae\u0301"}, {u"a\u200BX-ABLABEL", u"a\u200B"}});
}

/// The rule as it reads, one search of the pattern after the other.
TextView trimmedStepByStep(TextView value) {
  for (;;) {
    const auto match = VCardCleaner::trailingExtendedHeaderFragmentRegex().firstMatch(value);
    if (!match || !match->capture || match->capture->location == 0) {
      return value;
    }
    const TextView before = value.substr(0, match->capture->location);
    const TextView fragment =
        trimWhitespaceAndNewlines(value.substr(match->capture->location, match->capture->length));
    const TextView last = before.substr(startOfLastCharacter(before));
    const Text name = upperCased(fragment.substr(0, findCharacter(fragment, u';')));
    if (fragment.find(u':') != TextView::npos || u_isUWhiteSpace(last.front()) != 0 ||
        name.size() < 6 || !VCardCleaner::isAllowlistedProperty(name)) {
      return value;
    }
    value = VCardCleaner::trimTrailingWhitespace(before);
  }
}

TEST(DanglingFragments, findsWhatTheRuleFindsStepByStep) {
  constexpr std::array<TextView, 16> kPieces = {
      u"X-ABLABEL", u"x-abdate", u"VND-63-SENSITIVE-CONTENT-CONFIG",
      u"X-FOO",     u"X-",       u";",
      u";a=b",      u" ",        u"\n",
      u"\r",        u":",        u"\u00E9",
      u"a",         u".",        u"\u017F",
      u"\u0301"};
  RandomSource random(testSeed());
  std::size_t cut = 0;
  for (int i = 0; i < 50'000; ++i) {
    Text value;
    for (std::size_t pieces = random.below(12); pieces > 0; --pieces) {
      value += random.oneIn(3) ? kPieces[0] : random.oneOf(kPieces);
    }
    const TextView expected = trimmedStepByStep(value);
    cut += expected.size() < value.size() ? 1U : 0U;
    ASSERT_EQ(VCardCleaner::trimDanglingExtendedFragmentsInValue(value), expected)
        << testing::PrintToString(value) << ", seed " << testSeed();
  }
  EXPECT_GT(cut, 500U);
}

TEST(DanglingFragments, takesTheBlankBeforeThemAlongWhenAMarkJoinsIt) {
  // What is no white space by its first code point may still end in some.
  EXPECT_EQ(VCardCleaner::trimDanglingExtendedFragmentsInValue(u"Main\u0600 X-ABLABEL"), u"Main");
}

} // namespace
} // namespace cardwright
