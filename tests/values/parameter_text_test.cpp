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

TEST(DecodeParameterTextValue, takesCaretEscapesAway) {
  EXPECT_EQ(VCardUtils::decodeParameterTextValue(u"^^^'^n^x"), u"^\"\n^x");
  EXPECT_EQ(VCardUtils::decodeParameterTextValue(u"a^Nb^ c^,"), u"a^Nb^ c^,");
  EXPECT_EQ(VCardUtils::decodeParameterTextValue(u"^^n"), u"^n");
  EXPECT_EQ(VCardUtils::decodeParameterTextValue(u"a\\nb\"c"), u"a\\nb\"c");
  EXPECT_EQ(VCardUtils::decodeParameterTextValue(Text(u"^") + kHigh + u"^é"),
            Text(u"^") + kHigh + u"^é");
  EXPECT_EQ(VCardUtils::decodeParameterTextValue(u""), u"");
}

TEST(DecodeParameterTextValue, dropsACaretAtTheEnd) {
  EXPECT_EQ(VCardUtils::decodeParameterTextValue(u"a^"), u"a");
  EXPECT_EQ(VCardUtils::decodeParameterTextValue(u"^"), u"");
  EXPECT_EQ(VCardUtils::decodeParameterTextValue(u"^^^"), u"^");
}

TEST(EncodeParameterTextValue, escapesLineFeedsQuotesAndCarets) {
  EXPECT_EQ(VCardUtils::encodeParameterTextValue(u"a\n\"^\r"), u"a^n^'^^\r");
  EXPECT_EQ(VCardUtils::encodeParameterTextValue(u"\r\n"), u"\r^n");
  EXPECT_EQ(VCardUtils::encodeParameterTextValue(u"a,b;c:'\\"), u"a,b;c:'\\");
  EXPECT_EQ(VCardUtils::encodeParameterTextValue(Text(u"\0\uFFFD", 2) + kHigh),
            Text(u"\0\uFFFD", 2) + kHigh);
  EXPECT_EQ(VCardUtils::encodeParameterTextValue(u""), u"");
}

TEST(ParameterText, isTheTextItselfWhereNothingChanges) {
  const Text text = u"home, sweet; home";
  EXPECT_EQ(decodedParameterText(text).view().data(), text.data());
  EXPECT_EQ(encodedParameterText(text).view().data(), text.data());
}

/// The same, remembering only whether the unit before was an escape.
Text decodedUnitByUnit(const Text& text) {
  Text result;
  bool isEscaped = false;
  for (const char16_t unit : text) {
    if (!isEscaped && unit == u'^') {
      isEscaped = true;
      continue;
    }
    if (!isEscaped || unit == u'^') {
      result += unit;
    } else if (unit == u'\'') {
      result += u'"';
    } else if (unit == u'n') {
      result += u'\n';
    } else {
      result += u'^';
      result += unit;
    }
    isEscaped = false;
  }
  return result;
}

TEST(DecodeParameterTextValue, agreesWithAPlainReaderOnAllShortTexts) {
  forEachCombination(Text(u"^'nNx\n\"é"), 5, [](const Text& text) {
    ASSERT_EQ(VCardUtils::decodeParameterTextValue(text), decodedUnitByUnit(text))
        << testing::PrintToString(text);
  });
}

TEST(EncodeParameterTextValue, isUndoneByDecoding) {
  forEachCombination(Text(u"^'n\n\"\ré") + kHigh, 5, [](const Text& text) {
    const Text encoded = VCardUtils::encodeParameterTextValue(text);
    ASSERT_EQ(VCardUtils::decodeParameterTextValue(encoded), text);
    ASSERT_EQ(encoded.find_first_of(u"\n\""), Text::npos);
  });
  std::mt19937_64 random(testSeed());
  for (int round = 0; round < 5000; ++round) {
    const Text text = randomString(Text(u"^^^n'\"\nabc"), random() % 80, random);
    ASSERT_EQ(VCardUtils::decodeParameterTextValue(VCardUtils::encodeParameterTextValue(text)),
              text);
  }
}

} // namespace
} // namespace cardwright
