#include "base/case.h"
#include "support/code_point_name.h"
#include "support/combinations.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <array>
#include <clocale>
#include <string>
#include <vector>

namespace cardwright {
namespace {

Text lowerCasedByIcu(TextView text) {
  Text lower(text.size() * 2, u'\0');
  UErrorCode status = U_ZERO_ERROR;
  const int32_t length = u_strToLower(lower.data(), static_cast<int32_t>(lower.size()), text.data(),
                                      static_cast<int32_t>(text.size()), "en_US_POSIX", &status);
  lower.resize(static_cast<std::size_t>(length));
  return lower;
}

TEST(UpperCased, mapsAsciiAndTheRestOfUnicodeInFull) {
  EXPECT_EQ(upperCased(u"tel-1"), u"TEL-1");
  EXPECT_EQ(upperCased(u"straße"), u"STRASSE");
  EXPECT_EQ(upperCased(u"ﬁx"), u"FIX");
  EXPECT_EQ(upperCased(u"iı"), u"II");
  EXPECT_EQ(upperCased(u""), u"");
}

TEST(LowerCased, usesNoLanguageOfItsOwn) {
  EXPECT_EQ(lowerCased(u"IÉ"), u"ié");
  EXPECT_EQ(lowerCased(u"ΑΣ"), u"ας");
}

TEST(LowerCased, looksAtTheNeighboursOfASigma) {
  EXPECT_EQ(lowerCased(u"\u0391\u03A3\u0391"), u"\u03B1\u03C3\u03B1");
  EXPECT_EQ(lowerCased(u"\u0391\u03A3.\u0391"), u"\u03B1\u03C3.\u03B1");
  EXPECT_EQ(lowerCased(u"\u0391\u03A3 \u0391"), u"\u03B1\u03C2 \u03B1");
  EXPECT_EQ(lowerCased(u" \u03A3"), u" \u03C3");
}

// ICU is given long texts in pieces of a megabyte.
TEST(LowerCased, givesTheSameForPiecesAndForTheWhole) {
  constexpr std::size_t kAround = std::size_t{1} << 20U;
  const Text fillers[] = {u"a.", u"\u0391.", u"\U00010400", u"\u0391 ", u"\u03A3"};
  const Text middles[] = {u"\u0391\u03A3", u"\u0391\u03A3 ", u" \u03A3\u0391",
                          u"\U00010400\U00010400", u"\u0391\u03A3\n\u03A3\u0391"};
  for (const Text& filler : fillers) {
    for (const Text& middle : middles) {
      Text text;
      while (text.size() + 3 < kAround) {
        text += filler;
      }
      text += middle + filler + filler + u" " + filler + filler;
      ASSERT_EQ(lowerCased(text), lowerCasedByIcu(text));
    }
  }
}

TEST(UpperCased, mapsLoneSurrogatesToThemselves) {
  const Text text = {char16_t{0xDC00}, u'a', char16_t{0xD801}, u'\u00DF', char16_t{0xD801}};
  EXPECT_EQ(upperCased(text),
            (Text{char16_t{0xDC00}, u'A', char16_t{0xD801}, u'S', u'S', char16_t{0xD801}}));
}

TEST(UpperCased, growsToThreeTimesTheLength) {
  // The longest mapping there is, behind a text that asks for a second piece.
  const Text ligatures(2'100'000, u'\uFB03');
  const Text upper = upperCased(ligatures);
  ASSERT_EQ(upper.size(), ligatures.size() * 3);
  EXPECT_EQ(upper.substr(upper.size() - 6), u"FFIFFI");
  EXPECT_EQ(upper.find_first_not_of(u"FI"), Text::npos);
}

TEST(CaseMappings, dependOnNoLocaleOfTheEnvironment) {
  for (const char* locale : {"tr_TR.UTF-8", "tr_TR", "lt_LT.UTF-8", "C"}) {
    // Not every machine has every locale; those it has must not matter.
    const char* set = std::setlocale(LC_ALL, locale);
    EXPECT_EQ(upperCased(u"i\u00E9"), u"I\u00C9") << (set != nullptr ? set : locale);
    EXPECT_EQ(lowerCased(u"I\u00C9"), u"i\u00E9") << (set != nullptr ? set : locale);
    EXPECT_TRUE(equalIgnoringCase(u"title", u"TITLE"));
  }
  std::setlocale(LC_ALL, "C");
}

TEST(UpperCasedName, viewsANameThatIsUpperCaseAlready) {
  const Text name = u"X-ABLABEL";
  const UpperCasedName upper(name);
  EXPECT_EQ(upper.view().data(), name.data());
  EXPECT_TRUE(upper.isOriginal());
}

TEST(UpperCasedName, mapsShortLongAndForeignNames) {
  EXPECT_EQ(UpperCasedName(u"tel").view(), u"TEL");
  EXPECT_EQ(UpperCasedName(Text(200, u'a')).view(), Text(200, u'A'));
  EXPECT_EQ(UpperCasedName(u"straße").view(), u"STRASSE");
}

TEST(EqualIgnoringCase, foldsInFull) {
  EXPECT_TRUE(equalIgnoringCase(u"begin:vcard", u"BEGIN:VCARD"));
  EXPECT_TRUE(equalIgnoringCase(u"Straße", u"STRASSE"));
  EXPECT_TRUE(equalIgnoringCase(u"\u212Ain\u017F", u"kins"));
  EXPECT_TRUE(equalIgnoringCase(u"", u""));
  EXPECT_FALSE(equalIgnoringCase(u"tel", u"te"));
  EXPECT_FALSE(equalIgnoringCase(u"strasse", u"straß"));
  EXPECT_FALSE(equalIgnoringCase(u"é", u"e"));
}

TEST(UpperCasedName, changesItsMindAtTheLengthOfItsBuffer) {
  for (std::size_t length = 0; length < 60; ++length) {
    const Text lower(length, u'x');
    const Text upper(length, u'X');
    EXPECT_EQ(UpperCasedName(lower).view(), upper);
    EXPECT_EQ(UpperCasedName(upper).view().data(), upper.data());
    EXPECT_EQ(UpperCasedName(lower + u"\u00E9").view(), upper + u"\u00C9");
  }
  EXPECT_TRUE(UpperCasedName(u"").isOriginal());
  EXPECT_FALSE(UpperCasedName(u"\u00C9").isOriginal()) << "only ICU knows that it is upper case";
  EXPECT_EQ(UpperCasedName(u"\u00C9").view(), u"\u00C9");
}

TEST(EqualIgnoringCase, agreesWithIcuOnEveryCodePoint) {
  for (UChar32 c = 0; c <= 0x10FFFF; ++c) {
    std::array<UChar, 2> units{};
    int32_t length = 0;
    U16_APPEND_UNSAFE(units.data(), length, c);
    const Text text(units.begin(), units.begin() + length);
    std::array<UChar, 8> folded{};
    UErrorCode status = U_ZERO_ERROR;
    const int32_t foldedLength =
        u_strFoldCase(folded.data(), 8, units.data(), length, U_FOLD_CASE_DEFAULT, &status);
    const Text expected(folded.begin(), folded.begin() + foldedLength);
    ASSERT_EQ(caseFolded(text), expected) << codePointName(static_cast<char32_t>(c));
    ASSERT_TRUE(equalIgnoringCase(text, expected)) << codePointName(static_cast<char32_t>(c));
    ASSERT_TRUE(equalIgnoringCase(u"a" + expected, u"A" + text));
    ASSERT_FALSE(equalIgnoringCase(text, expected + u"x"));
  }
}

TEST(EqualIgnoringCase, isWhatEqualFoldedTextsMean) {
  // All that folds to ASCII, its parts, and what resembles it.
  const Text alphabet = u"sStTfFiIkK\u017F\u212A\u00DF\u1E9E\uFB00\uFB01\uFB05\uFB06\u0130\u0131";
  std::vector<Text> texts;
  forEachCombination(alphabet, 2, [&texts](const Text& text) { texts.push_back(text); });
  for (const Text& a : texts) {
    for (const Text& b : texts) {
      ASSERT_EQ(equalIgnoringCase(a, b), caseFolded(a) == caseFolded(b))
          << testing::PrintToString(a) << testing::PrintToString(b);
    }
  }
}

TEST(EqualIgnoringCase, comparesLoneSurrogatesAsThemselves) {
  const Text high(1, char16_t{0xD800});
  const Text low(1, char16_t{0xDC00});
  EXPECT_TRUE(equalIgnoringCase(high, high));
  EXPECT_FALSE(equalIgnoringCase(high, low));
}

TEST(FindIgnoringCase, findsFoldedTextAndTellsItsLength) {
  const auto found = findIgnoringCase(u"aX-ADDREßBooK", u"x-addressbook");
  ASSERT_TRUE(found);
  EXPECT_EQ(found->position, 1U);
  EXPECT_EQ(found->length, 12U);
  EXPECT_FALSE(findIgnoringCase(u"abc", u"bd"));
}

TEST(FindIgnoringCase, agreesWithASearchThroughEveryPlace) {
  const Text alphabet = u"sSaf\u017F\u00DF\uFB00\uFB05";
  for (const TextView wanted : {u"s", u"ss", u"sa", u"ff", u"st", u"sss"}) {
    forEachCombination(alphabet, 4, [wanted](const Text& text) {
      std::optional<FoldedMatch> expected;
      for (std::size_t begin = 0; !expected && begin < text.size(); ++begin) {
        for (std::size_t length = 1; !expected && begin + length <= text.size(); ++length) {
          if (caseFolded(TextView(text).substr(begin, length)) == wanted) {
            expected = FoldedMatch{begin, length};
          }
        }
      }
      const auto found = findIgnoringCase(text, wanted);
      ASSERT_EQ(found.has_value(), expected.has_value()) << testing::PrintToString(text);
      if (found) {
        ASSERT_EQ(found->position, expected->position) << testing::PrintToString(text);
        ASSERT_EQ(found->length, expected->length) << testing::PrintToString(text);
      }
    });
  }
}

TEST(FindIgnoringCase, startsWhereItIsTold) {
  EXPECT_EQ(findIgnoringCase(u"abab", u"ab", 1)->position, 2U);
  EXPECT_FALSE(findIgnoringCase(u"abab", u"ab", 3));
  EXPECT_FALSE(findIgnoringCase(u"ab", u"ab", 9));
}

TEST(PrefixLengthIgnoringCase, countsUnitsOfTheSearchedText) {
  EXPECT_EQ(prefixLengthIgnoringCase(u"xSTRA\u00DFE", 1, u"strass"), 5U);
  EXPECT_EQ(prefixLengthIgnoringCase(u"\u212Aelvin", 0, u"kel"), 3U);
  EXPECT_EQ(prefixLengthIgnoringCase(u"abc", 3, u""), 0U);
  EXPECT_FALSE(prefixLengthIgnoringCase(u"abc", 3, u"a"));
  EXPECT_FALSE(prefixLengthIgnoringCase(u"ab", 0, u"abc"));
}

TEST(FindIgnoringCase, takesACharacterWholeOrNotAtAll) {
  EXPECT_FALSE(findIgnoringCase(u"ß", u"s"));
  EXPECT_FALSE(findIgnoringCase(u"aß", u"as"));
  EXPECT_TRUE(findIgnoringCase(u"aß", u"ass"));
}

} // namespace
} // namespace cardwright
