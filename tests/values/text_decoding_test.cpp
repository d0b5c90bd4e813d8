#include "cardwright/vcard_utils.h"
#include "support/combinations.h"
#include "support/seed.h"
#include "support/text_printer.h"
#include "values/text_codec.h"

#include <gtest/gtest.h>

#include <random>

namespace cardwright {
namespace {

const Text kHigh(1, char16_t{0xD800});
const Text kLow(1, char16_t{0xDC00});

std::optional<Text> unescaped(std::optional<TextView> text) {
  return VCardUtils::decodeTextValue(text, false, std::nullopt);
}

TEST(DecodeTextValue, isAbsentForAnAbsentText) {
  for (const bool quotedPrintable : {false, true}) {
    EXPECT_EQ(VCardUtils::decodeTextValue(std::nullopt, quotedPrintable, u"utf-8"), std::nullopt);
    EXPECT_EQ(VCardUtils::decodeTextValue(std::nullopt, quotedPrintable, std::nullopt),
              std::nullopt);
    EXPECT_EQ(VCardUtils::decodeTextValue(u"", quotedPrintable, std::nullopt), u"");
    EXPECT_EQ(VCardUtils::decodeTextValue(u"", quotedPrintable, u"utf-16"), u"");
  }
}

TEST(DecodeTextValue, takesBackslashEscapesAway) {
  EXPECT_EQ(unescaped(uR"(a\\b)"), uR"(a\b)");
  EXPECT_EQ(unescaped(uR"(\\n)"), uR"(\n)");
  EXPECT_EQ(unescaped(uR"(\N\n\R\r)"), u"\n\n\r\r");
  EXPECT_EQ(unescaped(uR"(a\,b\;c\:d\te\"f)"), u"a,b;c:dte\"f");
  EXPECT_EQ(unescaped(u"\\\nx"), u"\nx");
  EXPECT_EQ(unescaped(u"\\é\\\U0001F600"), u"é\U0001F600");
}

TEST(DecodeTextValue, dropsABackslashAtTheEnd) {
  EXPECT_EQ(unescaped(u"a\\"), u"a");
  EXPECT_EQ(unescaped(u"\\"), u"");
  EXPECT_EQ(unescaped(u"\\\\\\"), u"\\");
}

TEST(DecodeTextValue, keepsEveryOtherUnit) {
  for (const Text& text : {kHigh, kLow, kLow + kHigh, Text(u"\uD7FF\uFFFD\U0010FFFF"), Text(2, 0),
                           Text(u"=41 ^n\r\n\u0001")}) {
    EXPECT_EQ(unescaped(text), text);
    EXPECT_EQ(unescaped(Text(u"\\") + text), text);
  }
}

TEST(DecodeTextValue, decodesQuotedPrintableBehindTheEscapes) {
  const auto decoded = [](TextView text, std::optional<TextView> charset) {
    return VCardUtils::decodeTextValue(text, true, charset);
  };
  EXPECT_EQ(decoded(u"=C3=A9", u"utf-8"), u"é");
  EXPECT_EQ(decoded(u"=C3=A9", u"ISO-8859-1"), u"Ã©");
  EXPECT_EQ(decoded(u"a\\;=3B", std::nullopt), u"a;;");
  // A backslash that only quoted-printable brings in escapes nothing; one before "=" goes.
  EXPECT_EQ(decoded(u"=5Cn", std::nullopt), u"\\n");
  EXPECT_EQ(decoded(u"\\=41", std::nullopt), u"A");
  // The escape makes a soft break.
  EXPECT_EQ(decoded(u"a=\\nb", std::nullopt), u"ab");
  // Text outside ASCII stays undecoded, but not escaped.
  EXPECT_EQ(decoded(u"é\\,=41", u"utf-8"), u"é,=41");
}

TEST(DecodeTextValue, makesLineFeedsThatWereWrittenAsPairsPairsAgain) {
  const auto decoded = [](TextView text) {
    return VCardUtils::decodeTextValue(text, true, std::nullopt);
  };
  EXPECT_EQ(decoded(u"a=0D=0Ab"), u"a\r\nb");
  EXPECT_EQ(decoded(u"a=0Ab"), u"a\nb");
  // The escapes are looked for in the text as it was written: here none of the two survives.
  EXPECT_EQ(decoded(u"=0a=0d=0ax=0Ay"), u"0a0d0ax\r\ny");
  EXPECT_EQ(decoded(u"=0d\\=0a=0A"), u"0d0a\n");
  EXPECT_EQ(decoded(u"a=0D=0Ab\\nc"), u"a\r\nb\nc");
  EXPECT_EQ(decoded(u"a\\nb"), u"a\nb");
  // Text outside ASCII is not decoded, but its line feeds are looked at.
  EXPECT_EQ(decoded(u"é=0D=0A\\n"), u"é=0D=0A\r\n");
}

TEST(DecodeTextValue, readsPlainAsciiInTheCharset) {
  const auto decoded = [](TextView text, TextView charset) {
    return VCardUtils::decodeTextValue(text, false, charset);
  };
  EXPECT_EQ(decoded(u"plain\\, text", u"utf-8"), u"plain, text");
  EXPECT_EQ(decoded(u"~{11>)~}", u"HZ-GB-2312"), u"北京");
  EXPECT_EQ(decoded(u"Az09", u"utf-16be"), u"\u417A\u3039");
  EXPECT_EQ(decoded(u"Az0", u"utf-16be"), u"Az0");
  EXPECT_EQ(decoded(u"plain", u"nonsense"), u"plain");
  EXPECT_EQ(decoded(TextView(u"A\0B\0", 4), u"nonsense"), u"AB");
  EXPECT_EQ(decoded(TextView(u"A\0B\0", 4), u"utf-8"), TextView(u"A\0B\0", 4));
  EXPECT_EQ(decoded(u"\\~", u"shift_jis"), u"~");
  // Text outside ASCII has been decoded before and stays.
  EXPECT_EQ(decoded(u"é\\,Az09", u"utf-16be"), u"é,Az09");
  EXPECT_EQ(decoded(u"\u0080", u"ascii"), u"\u0080");
}

TEST(DecodedText, isTheTextItselfWhereNothingChanges) {
  const Text text = u"nothing to see";
  for (const std::optional<TextView> charset :
       {std::optional<TextView>(), std::optional<TextView>(u"utf-8"),
        std::optional<TextView>(u"nonsense")}) {
    for (const bool quotedPrintable : {false, true}) {
      const auto coded = decodedText(text, quotedPrintable, charset);
      ASSERT_TRUE(coded);
      EXPECT_TRUE(coded->isOriginal());
      EXPECT_EQ(coded->view().data(), text.data());
    }
  }
  EXPECT_FALSE(decodedText(u"a\\n", false, std::nullopt)->isOriginal());
}

/// The same, remembering only whether the unit before was an escape.
Text unescapedUnitByUnit(const Text& text) {
  Text result;
  bool isEscaped = false;
  for (const char16_t unit : text) {
    if (!isEscaped && unit == u'\\') {
      isEscaped = true;
      continue;
    }
    if (isEscaped && (unit == u'n' || unit == u'N')) {
      result += u'\n';
    } else if (isEscaped && (unit == u'r' || unit == u'R')) {
      result += u'\r';
    } else {
      result += unit;
    }
    isEscaped = false;
  }
  return result;
}

TEST(DecodeTextValue, agreesWithAPlainReaderOnAllShortTexts) {
  forEachCombination(Text(u"\\nNrRt,;a\n"), 5, [](const Text& text) {
    ASSERT_EQ(unescaped(text), unescapedUnitByUnit(text)) << testing::PrintToString(text);
  });
}

TEST(DecodeTextValue, agreesWithAPlainReaderOnRandomTexts) {
  std::mt19937_64 random(testSeed());
  const Text alphabet = Text(u"\\\\\\nr,é€") + kHigh + kLow;
  for (int round = 0; round < 20000; ++round) {
    const Text text = randomString(alphabet, random() % 80, random);
    ASSERT_EQ(unescaped(text), unescapedUnitByUnit(text)) << testing::PrintToString(text);
  }
}

std::optional<TextList> list(std::optional<TextView> text) {
  return VCardUtils::decodeTextMultiValue(text, false, std::nullopt);
}

TEST(DecodeTextMultiValue, splitsTrimsAndDecodes) {
  EXPECT_EQ(list(u"a, b ,  ,c,"), (TextList{u"a", u"b", u"  ", u"c", u""}));
  EXPECT_EQ(list(u"a\\,b,c\\\\,d"), (TextList{u"a,b", u"c\\", u"d"}));
  EXPECT_EQ(list(u"\u2028a\r\n,\u3000b\u0085"), (TextList{u"a", u"b"}));
  EXPECT_EQ(list(u",,"), (TextList{u"", u"", u""}));
  EXPECT_EQ(list(u"a\\"), (TextList{u"a"}));
}

TEST(DecodeTextMultiValue, keepsAPieceOfNothingButBlanks) {
  EXPECT_EQ(list(u" "), (TextList{u" "}));
  EXPECT_EQ(list(u"a,\tb\t,\t"), (TextList{u"a", u"b", u"\t"}));
  EXPECT_EQ(list(u"\r\n,\u00A0"), (TextList{u"\r\n", u"\u00A0"}));
}

TEST(DecodeTextMultiValue, hasOneEntryForAnEmptyTextAndNoneForAnAbsentOne) {
  EXPECT_EQ(list(u""), TextList{u""});
  EXPECT_EQ(list(std::nullopt), std::nullopt);
}

TEST(DecodeTextMultiValue, trimsBeforeItDecodes) {
  EXPECT_EQ(list(u"a\\ ,b"), (TextList{u"a", u"b"}));
  EXPECT_EQ(list(u"\\n a"), (TextList{u"\n a"}));
  EXPECT_EQ(VCardUtils::decodeTextMultiValue(u" =20a=20 ,=2C", true, u"utf-8"),
            (TextList{u" a ", u","}));
}

TEST(NormalizedDecodedString, insertsCarriageReturns) {
  EXPECT_EQ(VCardUtils::normalizedDecodedString(u"a\nb", u"a=0D=0Ab"), u"a\r\nb");
  EXPECT_EQ(VCardUtils::normalizedDecodedString(u"\n\n", u"x=0d=0A"), u"\r\n\r\n");
  EXPECT_EQ(VCardUtils::normalizedDecodedString(u"a\rb\n", u"=0D=0A"), u"a\rb\r\n");
}

TEST(NormalizedDecodedString, leavesTheTextAloneOtherwise) {
  EXPECT_EQ(VCardUtils::normalizedDecodedString(std::nullopt, u"=0D=0A"), std::nullopt);
  EXPECT_EQ(VCardUtils::normalizedDecodedString(u"a\nb", std::nullopt), u"a\nb");
  EXPECT_EQ(VCardUtils::normalizedDecodedString(u"a\nb", u"a=0Ab"), u"a\nb");
  EXPECT_EQ(VCardUtils::normalizedDecodedString(u"a\nb", u"=0D =0A"), u"a\nb");
  EXPECT_EQ(VCardUtils::normalizedDecodedString(u"a\r\nb\nc", u"=0D=0A"), u"a\r\nb\nc");
  EXPECT_EQ(VCardUtils::normalizedDecodedString(u"ab", u"=0D=0A"), u"ab");
  EXPECT_EQ(VCardUtils::normalizedDecodedString(u"", u""), u"");
}

TEST(TrimQuotedPrintableSoftBreakSuffix, takesBlanksAndThenOneEqualsSign) {
  const auto trimmedLine = [](Text line) {
    VCardUtils::trimQuotedPrintableSoftBreakSuffixFromLine(line,
                                                           CharacterSet::fromCharacters(u" \t"));
    return line;
  };
  EXPECT_EQ(trimmedLine(u"a= \t"), u"a");
  EXPECT_EQ(trimmedLine(u"a=="), u"a=");
  EXPECT_EQ(trimmedLine(u"a = "), u"a ");
  EXPECT_EQ(trimmedLine(u"a \t"), u"a");
  EXPECT_EQ(trimmedLine(u"a= ="), u"a= ");
  EXPECT_EQ(trimmedLine(u"a=\u00A0"), u"a=\u00A0");
  EXPECT_EQ(trimmedLine(u"="), u"");
  EXPECT_EQ(trimmedLine(u" \t "), u"");
  EXPECT_EQ(trimmedLine(u""), u"");
  EXPECT_EQ(trimmedLine(u"a"), u"a");
}

TEST(TrimQuotedPrintableSoftBreakSuffix, trimsWhatItIsTold) {
  Text line = u"a=xyz";
  VCardUtils::trimQuotedPrintableSoftBreakSuffixFromLine(line,
                                                         CharacterSet::fromCharacters(u"zyx"));
  EXPECT_EQ(line, u"a");
  line = u"a== ";
  VCardUtils::trimQuotedPrintableSoftBreakSuffixFromLine(line, CharacterSet::fromCharacters(u" ="));
  EXPECT_EQ(line, u"a");
}

} // namespace
} // namespace cardwright
