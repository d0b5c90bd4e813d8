#include "cardwright/character_set.h"
#include "cardwright/vcard_utilities.h"
#include "support/combinations.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <map>

namespace cardwright {
namespace {

const Text kHigh(1, char16_t{0xD800});
const Text kLow(1, char16_t{0xDC00});

TEST(RangeOfUnescapedDelimiter, skipsBackslashesAndWhatTheyEscape) {
  const auto find = [](TextView text, TextRange range) {
    return VCardUtilities::rangeOfUnescapedDelimiter(text, u',', range);
  };
  EXPECT_EQ(find(u"a\\,b,c", {0, 6}), (TextRange{4, 1}));
  EXPECT_EQ(find(u"a\\\\,b", {0, 5}), (TextRange{3, 1}));
  EXPECT_EQ(find(u",", {0, 1}), (TextRange{0, 1}));
  EXPECT_EQ(find(u"a\\,b", {2, 2}), (TextRange{2, 1}));
  EXPECT_EQ(find(u"a,b,c", {2, 3}), (TextRange{3, 1}));
}

TEST(RangeOfUnescapedDelimiter, findsNothingOutsideItsRange) {
  const TextRange none{TextRange::kNotFound, 0};
  const auto find = [](TextView text, TextRange range) {
    return VCardUtilities::rangeOfUnescapedDelimiter(text, u',', range);
  };
  EXPECT_EQ(TextRange::kNotFound, 9223372036854775807U);
  EXPECT_EQ(find(u"", {0, 0}), none);
  EXPECT_EQ(find(u"a\\", {0, 2}), none);
  EXPECT_EQ(find(u"a\\,b,", {0, 2}), none);
  EXPECT_EQ(find(u"abc,", {0, 3}), none);
  EXPECT_EQ(find(u"a,b", {2, 1}), none);
  EXPECT_EQ(find(u"a,b", {7, 1}), none);
  EXPECT_EQ(find(u"a,b", {1, TextRange::kNotFound}), (TextRange{1, 1}));
  EXPECT_EQ(find(u"ab", {TextRange::kNotFound, TextRange::kNotFound}), none);
}

TEST(RangeOfUnescapedDelimiter, takesABackslashForAnEscapeEvenAsDelimiter) {
  EXPECT_EQ(VCardUtilities::rangeOfUnescapedDelimiter(u"a\\b", u'\\', {0, 3}),
            (TextRange{TextRange::kNotFound, 0}));
}

TEST(IsEqualToCaseInsensitiveString, foldsCase) {
  EXPECT_TRUE(VCardUtilities::isEqualToCaseInsensitiveString(u"Type", u"tYPE"));
  EXPECT_TRUE(VCardUtilities::isEqualToCaseInsensitiveString(u"straße", u"STRASSE"));
  EXPECT_TRUE(VCardUtilities::isEqualToCaseInsensitiveString(u"", u""));
  EXPECT_FALSE(VCardUtilities::isEqualToCaseInsensitiveString(u"é", u"e\u0301"));
  EXPECT_FALSE(VCardUtilities::isEqualToCaseInsensitiveString(u"a", u"ab"));
}

TEST(IsEqualToCaseInsensitiveString, isFalseForAnAbsentOther) {
  EXPECT_FALSE(VCardUtilities::isEqualToCaseInsensitiveString(u"a", std::nullopt));
  EXPECT_FALSE(VCardUtilities::isEqualToCaseInsensitiveString(u"", std::nullopt));
}

TEST(FirstCharacter, isTheFirstUnitWhereItIsAWholeCharacter) {
  EXPECT_EQ(VCardUtilities::firstCharacter(u"ab"), u'a');
  EXPECT_EQ(VCardUtilities::firstCharacter(u"é"), u'é');
  EXPECT_EQ(VCardUtilities::firstCharacter(u"\n\r"), u'\n');
  EXPECT_EQ(VCardUtilities::firstCharacter(u"\ra"), u'\r');
  EXPECT_EQ(VCardUtilities::firstCharacter(kHigh), 0xD800);
  EXPECT_EQ(VCardUtilities::firstCharacter(kLow + kHigh), 0xDC00);
}

TEST(FirstCharacter, isZeroForNoneAndForALongerOne) {
  EXPECT_EQ(VCardUtilities::firstCharacter(u""), 0);
  EXPECT_EQ(VCardUtilities::firstCharacter(u"\U0001F600a"), 0);
  EXPECT_EQ(VCardUtilities::firstCharacter(u"e\u0301"), 0);
  EXPECT_EQ(VCardUtilities::firstCharacter(u"\r\n"), 0);
  EXPECT_EQ(VCardUtilities::firstCharacter(TextView(u"\0a", 2)), 0);
}

TEST(ValidXmlString, removesWhatXmlCannotHoldAndTheLastOfEachRange) {
  EXPECT_EQ(VCardUtilities::validXMLString(u"a\u0001\u000B\u001Fb"), u"ab");
  EXPECT_EQ(VCardUtilities::validXMLString(u"\uD7FE\uD7FF|\uFFFC\uFFFD\uFFFE\uFFFF|\U0010FFFE"
                                           u"\U0010FFFF"),
            u"\uD7FE|\uFFFC|\U0010FFFE");
  EXPECT_EQ(VCardUtilities::validXMLString(u"\t\n\r \u007F\u0085\uE000\U00010000"),
            u"\t\n\r \u007F\u0085\uE000\U00010000");
  EXPECT_EQ(VCardUtilities::validXMLString(TextView(u"\0a\0", 3)), u"a");
  EXPECT_EQ(VCardUtilities::validXMLString(u""), u"");
}

TEST(ValidXmlString, removesLoneSurrogates) {
  EXPECT_EQ(VCardUtilities::validXMLString(Text(u"a") + kHigh + Text(u"b") + kLow + kHigh), u"ab");
  EXPECT_EQ(VCardUtilities::validXMLString(Text(u"\U0001F600") + kLow), u"\U0001F600");
  EXPECT_EQ(VCardUtilities::validXMLString(kHigh + u"\U0001F600"), u"\U0001F600");
}

/// Removes one invalid character after the other and looks again from where it stood.
Text validByRemoving(Text text) {
  const CharacterSet invalid =
      CharacterSet{{0x9, 0xA}, {0xD, 0xD}, {0x20, 0xD7FE}, {0xE000, 0xFFFC}, {0x10000, 0x10FFFE}}
          .inverted();
  for (std::size_t at = 0; at < text.size();) {
    const bool isPair = at + 1 < text.size() && text[at] >= 0xD800 && text[at] < 0xDC00 &&
                        text[at + 1] >= 0xDC00 && text[at + 1] < 0xE000;
    const char32_t codePoint =
        isPair ? 0x10000U + ((text[at] - 0xD800U) << 10U) + (text[at + 1] - 0xDC00U) : text[at];
    const std::size_t length = isPair ? 2 : 1;
    if (invalid.contains(codePoint)) {
      text.erase(at, length);
    } else {
      at += length;
    }
  }
  return text;
}

TEST(ValidXmlString, agreesWithRemovalOneByOne) {
  const Text alphabet =
      Text(u"a\u0001\n\uD7FF\uFFFC\uFFFD") + kHigh + char16_t{0xDBFF} + kLow + char16_t{0xDFFF};
  forEachCombination(alphabet, 4, [](const Text& text) {
    ASSERT_EQ(VCardUtilities::validXMLString(text), validByRemoving(text))
        << testing::PrintToString(text);
  });
  for (unsigned unit = 0; unit < 0x10000; ++unit) {
    const Text text = {u'a', static_cast<char16_t>(unit), u'b'};
    ASSERT_EQ(VCardUtilities::validXMLString(text), validByRemoving(text)) << unit;
  }
}

TEST(AppendCrlf, appendsBoth) {
  Text buffer = u"a";
  VCardUtilities::appendCRLF(buffer, u"b");
  VCardUtilities::appendCRLF(buffer, u"");
  EXPECT_EQ(buffer, u"ab\r\n\r\n");
}

TEST(ObjectForCaseInsensitiveKey, prefersTheExactKeyAndThenTakesTheFirst) {
  const std::map<Text, int, std::less<>> dictionary = {{u"FOO", 1}, {u"Foo", 2}, {u"bar", 3}};
  const auto find = [&dictionary](TextView key) {
    return VCardUtilities::objectForCaseInsensitiveKey(dictionary, key);
  };
  ASSERT_NE(find(u"Foo"), nullptr);
  EXPECT_EQ(*find(u"Foo"), 2);
  EXPECT_EQ(*find(u"foo"), 1);
  EXPECT_EQ(*find(u"BAR"), 3);
  EXPECT_EQ(find(u"baz"), nullptr);
}

TEST(UniversalTimeZone, isTheSharedOneOfThatName) {
  EXPECT_EQ(VCardUtilities::universalTZ(), VCardUtilities::universalTZ());
  EXPECT_EQ(VCardUtilities::universalTZ().name(), u"Universal");
  EXPECT_EQ(VCardUtilities::universalTZ().secondsFromUtc(), 0);
  EXPECT_TRUE(VCardUtilities::universalTZ().isUniversal());
}

} // namespace
} // namespace cardwright
