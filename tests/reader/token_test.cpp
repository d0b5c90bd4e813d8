#include "cardwright/text_scanner.h"
#include "cardwright/vcard_utilities.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

namespace cardwright {
namespace {

struct TokenCase {
  TextView text;
  TextView delimiters;
  bool endOfLineIsOK;
  bool succeeds;
  TextView token;
  std::size_t location;
};

TEST(Token, isWhatStandsBeforeADelimiterOrBetweenQuotes) {
  const TokenCase cases[] = {
      {u"TEL:1", u";:", false, true, u"TEL", 3},
      {u"TEL;A:1", u";:", false, true, u"TEL", 3},
      {u"  \t\u00A0\u3000TEL :1", u";:", false, true, u"TEL ", 9},
      {u"\u2028TEL:1", u";:", false, true, u"\u2028TEL", 4},
      {u"TEL", u";:", false, false, u"", 3},
      {u"TEL", u";:", true, true, u"TEL", 3},
      {u":1", u";:", false, false, u"", 0},
      {u"  :1", u";:", true, false, u"", 2},
      {u"", u";:", true, false, u"", 0},
      {u"   ", u";:", true, false, u"", 3},
      {u"\"a;b:c\":v", u",;:", false, true, u"a;b:c", 7},
      {u" \"a\\\"x:v", u",;:", false, true, u"a\\", 5},
      {u"\"\":v", u",;:", false, false, u"", 2},
      {u"\"abc", u",;:", false, false, u"", 4},
      {u"\"abc", u",;:", true, true, u"abc", 4},
      {u"\"abc\"", u",;:", false, false, u"", 5},
      {u"\"abc\"", u",;:", true, true, u"abc", 5},
      {u"\" \":v", u",;:", false, true, u" ", 3},
      {u"\"", u",;:", true, false, u"", 1},
      {u"a\"b:c\":v", u",;:", false, true, u"a\"b", 3},
      {u"a=b:v", u",;:", false, true, u"a=b", 3},
  };
  for (const TokenCase& c : cases) {
    TextScanner scanner(c.text);
    Text token;
    EXPECT_EQ(scanner.scanQuotedStringOrUptoDelimiters(c.delimiters, &token, c.endOfLineIsOK),
              c.succeeds)
        << ::testing::PrintToString(Text(c.text));
    EXPECT_EQ(token, c.token) << ::testing::PrintToString(Text(c.text));
    EXPECT_EQ(scanner.scanLocation(), c.location) << ::testing::PrintToString(Text(c.text));
  }
}

TEST(Token, needsADelimiterBehindItUnlessTold) {
  TextScanner scanner(TextView(u"TEL"));
  EXPECT_FALSE(scanner.scanQuotedStringOrUptoDelimiters(u";:", nullptr));
}

TEST(Token, leavesTheCallersTextAloneWhenItFails) {
  TextScanner scanner(TextView(u"\"\":v"));
  Text token = u"untouched";
  EXPECT_FALSE(scanner.scanQuotedStringOrUptoDelimiters(u";:", &token));
  EXPECT_EQ(token, u"untouched");
}

TEST(Token, startsAtTheLocationAndFailsBehindTheEnd) {
  TextScanner scanner(TextView(u"a;b;c"));
  Text token;
  scanner.setScanLocation(2);
  ASSERT_TRUE(scanner.scanQuotedStringOrUptoDelimiters(u";", &token));
  EXPECT_EQ(token, u"b");
  scanner.setScanLocation(9);
  EXPECT_FALSE(scanner.scanQuotedStringOrUptoDelimiters(u";", &token, true));
}

TEST(UnescapedDelimiter, isNotHiddenByABackslash) {
  const auto find = [](TextView text, char16_t delimiter, std::size_t from = 0) {
    return VCardUtilities::rangeOfUnescapedDelimiter(text, delimiter, {from, text.size() - from});
  };
  EXPECT_EQ(find(u"a\\,b,c", u','), (TextRange{4, 1}));
  EXPECT_EQ(find(u"a\\\\,b", u','), (TextRange{3, 1}));
  EXPECT_EQ(find(u"a\\,b,c", u',', 2), (TextRange{2, 1}));
  EXPECT_EQ(find(u"ab\\", u','), TextRange{});
  EXPECT_EQ(find(u"", u','), TextRange{});
  EXPECT_EQ(VCardUtilities::rangeOfUnescapedDelimiter(u"abc,d", u',', {0, 3}), TextRange{});
}

} // namespace
} // namespace cardwright
