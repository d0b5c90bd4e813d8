#include "cardwright/vcard_utilities.h"
#include "cardwright/vcard_utils.h"
#include "support/combinations.h"
#include "support/seed.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <random>

namespace cardwright {
namespace {

const Text kHigh(1, char16_t{0xD800});
const Text kLow(1, char16_t{0xDC00});

Text written(std::optional<TextView> text, bool escapeSemicolons = true) {
  Text output;
  VCardUtils::writeTextValue(text, output, escapeSemicolons);
  return output;
}

TEST(WriteTextValue, escapesCommasBackslashesAndSemicolonsIfAsked) {
  EXPECT_EQ(written(u"a,b;c", false), u"a\\,b;c");
  EXPECT_EQ(written(u"a,b;c", true), u"a\\,b\\;c");
  EXPECT_EQ(written(u"a\\b:c\"d'e", true), u"a\\\\b:c\"d'e");
  EXPECT_EQ(written(u",", true), u"\\,");
}

TEST(WriteTextValue, writesEveryLineBreakAsOne) {
  EXPECT_EQ(written(u"\r\n"), u"\\n");
  EXPECT_EQ(written(u"\r"), u"\\n");
  EXPECT_EQ(written(u"\n"), u"\\n");
  EXPECT_EQ(written(u"\r\r\n\n"), u"\\n\\n\\n");
  EXPECT_EQ(written(u"\n\r"), u"\\n\\n");
}

TEST(WriteTextValue, dropsWhatXmlCannotHoldBeforeItEscapes) {
  EXPECT_EQ(written(u"a\uFFFDb\uD7FFc\u0001d\U0010FFFFe"), u"abcde");
  EXPECT_EQ(written(u"\uFFFC\uD7FE\U0010FFFE\u007F\u0085"), u"\uFFFC\uD7FE\U0010FFFE\u007F\u0085");
  EXPECT_EQ(written(Text(u"a") + kHigh + Text(u"b") + kLow), u"ab");
  EXPECT_EQ(written(TextView(u"a\0b", 3)), u"ab");
  // The line feed comes next once the others are gone.
  EXPECT_EQ(written(Text(u"\r\u0001") + kHigh + u"\n"), u"\\n");
  EXPECT_EQ(written(u"\r\u0001x\n"), u"\\nx\\n");
  EXPECT_EQ(written(u"\r\u0001"), u"\\n");
}

TEST(WriteTextValue, appends) {
  Text output = u"NOTE:";
  VCardUtils::writeTextValue(u"a,", output, false);
  VCardUtils::writeTextValue(std::nullopt, output, false);
  VCardUtils::writeTextValue(u"", output, true);
  EXPECT_EQ(output, u"NOTE:a\\,");
}

/// The same in one pass for each rule.
Text writtenRuleByRule(TextView text, bool escapeSemicolons) {
  Text result = VCardUtilities::validXMLString(text);
  const auto replaceAll = [&result](TextView what, TextView with) {
    Text replaced;
    std::size_t copied = 0;
    for (std::size_t at = result.find(what); at != Text::npos; at = result.find(what, copied)) {
      replaced.append(result, copied, at - copied).append(with);
      copied = at + what.size();
    }
    result = replaced.append(result, copied);
  };
  replaceAll(u"\\", u"\\\\");
  replaceAll(u",", u"\\,");
  if (escapeSemicolons) {
    replaceAll(u";", u"\\;");
  }
  replaceAll(u"\r\n", u"\n");
  replaceAll(u"\r", u"\n");
  replaceAll(u"\n", u"\\n");
  return result;
}

TEST(WriteTextValue, agreesWithOnePassForEachRuleOnAllShortTexts) {
  const Text alphabet = Text(u"\r\n\\,;a\u0001\uFFFDé") + kHigh + kLow;
  forEachCombination(alphabet, 4, [](const Text& text) {
    ASSERT_EQ(written(text, true), writtenRuleByRule(text, true)) << testing::PrintToString(text);
    ASSERT_EQ(written(text, false), writtenRuleByRule(text, false)) << testing::PrintToString(text);
  });
}

TEST(WriteTextValue, isUndoneByDecoding) {
  std::mt19937_64 random(testSeed());
  const Text alphabet = u"abc,;\\:\n\"'^= é€\u3042";
  for (int round = 0; round < 20000; ++round) {
    const Text text = randomString(alphabet, random() % 60, random);
    ASSERT_EQ(VCardUtils::decodeTextValue(written(text, random() % 2 == 0), false, std::nullopt),
              text);
  }
}

} // namespace
} // namespace cardwright
