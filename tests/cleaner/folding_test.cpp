#include "cardwright/utf8.h"
#include "cardwright/vcard_cleaner.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace cardwright {
namespace {

Text repeated(TextView piece, std::size_t count) {
  Text text;
  for (std::size_t i = 0; i < count; ++i) {
    text += piece;
  }
  return text;
}

/// A line behind a fold.
Text later(TextView piece) {
  Text line(1, u' ');
  return line += piece;
}

struct Row {
  Text line;
  TextList folded;
};

void expectRows(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(VCardCleaner::foldLine75(row.line), row.folded) << testing::PrintToString(row.line);
  }
}

TEST(FoldLine75, cutsBehind75Bytes) {
  expectRows({{u"", {u""}},
              {Text(75, u'a'), {Text(75, u'a')}},
              {Text(76, u'a'), {Text(75, u'a'), u" a"}},
              {Text(149, u'a'), {Text(75, u'a'), later(Text(74, u'a'))}},
              {Text(150, u'a'), {Text(75, u'a'), later(Text(74, u'a')), u" a"}}});
}

TEST(FoldLine75, countsBytesOfUtf8) {
  const Text surrogate(1, char16_t{0xD800});
  expectRows({{Text(37, u'\u00E9'), {Text(37, u'\u00E9')}},
              {Text(38, u'\u00E9'), {Text(37, u'\u00E9'), u" \u00E9"}},
              {Text(25, u'\u4E2D'), {Text(25, u'\u4E2D')}},
              {Text(26, u'\u4E2D'), {Text(25, u'\u4E2D'), u" \u4E2D"}},
              {repeated(u"\U0001F600", 19), {repeated(u"\U0001F600", 18), u" \U0001F600"}},
              {Text(25, surrogate[0]), {Text(25, surrogate[0])}},
              {Text(26, surrogate[0]), {Text(25, surrogate[0]), later(surrogate)}}});
}

TEST(FoldLine75, cutsBehindTheLastWhiteSpace) {
  const Text word(40, u'a');
  expectRows({{word + u' ' + word, {word + u' ', later(word)}},
              {word + u'\t' + word, {word + u'\t', later(word)}},
              {word + u'\u3000' + word, {word + u'\u3000', later(word)}},
              {word + u"\u00A0" + word, {word + u"\u00A0", later(word)}},
              // A blank with a mark is white space still.
              {word + u" \u0301" + word, {word + u" \u0301", later(word)}},
              // The zero-width space is none.
              {word + u'\u200B' + word, {word + u'\u200B' + Text(32, u'a'), later(Text(8, u'a'))}},
              // What fits is not cut, wherever its blanks stand.
              {Text(75, u'a') + u"b c", {Text(75, u'a'), u" b c"}},
              {Text(74, u'a') + u"  b", {Text(74, u'a') + u' ', u"  b"}},
              {Text(75, u'a') + u' ', {Text(75, u'a'), u"  "}},
              {Text(80, u' '), {Text(75, u' '), later(Text(5, u' '))}}});
}

TEST(FoldLine75, neverCutsACharacter) {
  const Text family = u"\U0001F468\u200D\U0001F469\u200D\U0001F467";
  expectRows(
      {{Text(70, u'a') + family, {Text(70, u'a'), later(family)}},
       {Text(74, u'a') + u"e\u0301", {Text(74, u'a'), u" e\u0301"}},
       {Text(73, u'a') + u"\U0001F1E9\U0001F1EA", {Text(73, u'a'), u" \U0001F1E9\U0001F1EA"}}});
}

TEST(FoldLine75, letsALongCharacterStandAlone) {
  const Text tall = [] {
    Text text(51, u'\u0301');
    text.front() = u'e';
    return text;
  }();
  expectRows({{tall, {tall}},
              {tall + u"b", {tall, u" b"}},
              {Text(u"a").append(tall).append(u"b"), {u"a", later(tall), u" b"}},
              {Text(u"a b").append(tall), {u"a ", u" b", later(tall)}},
              {tall + tall, {tall, later(tall)}}});
}

TEST(FoldLine75, keepsEveryUnit) {
  const Text line = repeated(u"N\u00E4me \u4E2D\u6587\t\U0001F600e\u0301;", 40);
  const TextList folded = VCardCleaner::foldLine75(line);
  Text together = folded.front();
  for (std::size_t i = 1; i < folded.size(); ++i) {
    EXPECT_EQ(folded[i].front(), u' ');
    together += TextView(folded[i]).substr(1);
  }
  EXPECT_EQ(together, line);
  for (const Text& piece : folded) {
    EXPECT_LE(utf8FromText(piece).size(), 75U);
  }
}

} // namespace
} // namespace cardwright
