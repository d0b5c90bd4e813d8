#include "cardwright/utf8.h"
#include "support/random_source.h"
#include "support/seed.h"
#include "support/text_printer.h"
#include "writer/folding.h"

#include <gtest/gtest.h>
#include <unicode/ubrk.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace cardwright {
namespace {

/// Expects that the line is folded the same way in UTF-8, if it can be encoded.
Text folded(TextView line) {
  Text output;
  appendFolded(output, line);
  const std::string utf8 = utf8FromText(line);
  if (textFromUtf8(utf8) == line) {
    std::string bytes = "before";
    appendFoldedUtf8(bytes, utf8);
    EXPECT_EQ(bytes, "before" + utf8FromText(output)) << ::testing::PrintToString(Text(line));
  }
  return output;
}

/// The physical lines, without the blank and the line end of each.
TextList piecesOf(TextView line) {
  const Text output = folded(line);
  TextList pieces;
  for (std::size_t at = 0; at < output.size();) {
    const std::size_t end = output.find(u"\r\n", at);
    const bool isContinuation = at > 0;
    EXPECT_TRUE(!isContinuation || output[at] == u' ');
    pieces.push_back(
        output.substr(at + (isContinuation ? 1 : 0), end - at - (isContinuation ? 1 : 0)));
    at = end + 2;
  }
  return pieces;
}

Text repeated(TextView piece, std::size_t count) {
  Text text;
  for (; count > 0; --count) {
    text += piece;
  }
  return text;
}

TEST(Folding, makesOneLineOfWhatFits) {
  EXPECT_EQ(folded(u""), u"\r\n");
  EXPECT_EQ(folded(u"FN:A"), u"FN:A\r\n");
  EXPECT_EQ(folded(Text(75, u'x')), Text(75, u'x') + u"\r\n");
}

TEST(Folding, cutsAt75BytesAndThenAt74BehindABlank) {
  EXPECT_EQ(folded(Text(76, u'x')), Text(75, u'x') + u"\r\n x\r\n");
  EXPECT_EQ(folded(Text(149, u'x')), Text(75, u'x') + u"\r\n " + Text(74, u'x') + u"\r\n");
  EXPECT_EQ(folded(Text(150, u'x')), Text(75, u'x') + u"\r\n " + Text(74, u'x') + u"\r\n x\r\n");
  EXPECT_EQ(folded(Text(200, u'x')),
            Text(75, u'x') + u"\r\n " + Text(74, u'x') + u"\r\n " + Text(51, u'x') + u"\r\n");
}

TEST(Folding, countsBytesOfUtf8) {
  // 37 characters of two bytes and one of one fill the first line.
  EXPECT_EQ(piecesOf(Text(u"x") + repeated(u"\u00E9", 38)),
            (TextList{Text(u"x") + repeated(u"\u00E9", 37), u"\u00E9"}));
  EXPECT_EQ(piecesOf(repeated(u"\u00E9", 38)), (TextList{repeated(u"\u00E9", 37), u"\u00E9"}));
  EXPECT_EQ(piecesOf(repeated(u"\u4E2D", 26)), (TextList{repeated(u"\u4E2D", 25), u"\u4E2D"}));
  EXPECT_EQ(piecesOf(repeated(u"\U0001F600", 19)),
            (TextList{repeated(u"\U0001F600", 18), u"\U0001F600"}));
  // A lone surrogate counts as the three bytes that a character of its plane takes.
  EXPECT_EQ(piecesOf(repeated(Text(1, char16_t{0xD800}), 26)),
            (TextList{repeated(Text(1, char16_t{0xD800}), 25), Text(1, char16_t{0xD800})}));
}

TEST(Folding, neverCutsACharacterOfFourBytes) {
  for (std::size_t before = 68; before <= 78; ++before) {
    const TextList pieces = piecesOf(Text(before, u'x') + u"\U0001F600y");
    Text joined;
    for (const Text& piece : pieces) {
      EXPECT_LE(utf8FromText(piece).size(), 75U);
      EXPECT_EQ(utf8FromText(piece).find("\xEF\xBF\xBD"), std::string::npos);
      joined += piece;
    }
    EXPECT_EQ(joined, Text(before, u'x') + u"\U0001F600y");
    EXPECT_EQ(pieces.front().size(), before <= 71   ? pieces.front().size()
                                     : before <= 75 ? before
                                                    : 75U);
  }
}

TEST(Folding, keepsCharactersOfSeveralCodePointsWhole) {
  const TextView characters[] = {
      u"e\u0301",                                                    // combining mark
      u"a\u0301\u0302\u0303",                                        // several
      u"\U0001F44D\U0001F3FD",                                       // emoji and skin tone
      u"\U0001F469\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466", // family
      u"\U0001F3F3\uFE0F\u200D\U0001F308",                           // flag made of two pictures
      u"\U0001F1E9\U0001F1EA",                                       // flag of two letters
      u"\u0915\u094D\u0937\u093F",                                   // Devanagari cluster
      u"\u0BA8\u0BBF",                                               // Tamil cluster
      u"\u1112\u1161\u11AB",                                         // Hangul of jamo
      u"\u0E01\u0E33",                                               // Thai
      u"1\uFE0F\u20E3",                                              // keycap
  };
  for (const TextView character : characters) {
    for (std::size_t before = 60; before <= 76; ++before) {
      const Text line = Text(before, u'x') + Text(character) + u"y";
      bool isWhole = false;
      for (const Text& piece : piecesOf(line)) {
        isWhole = isWhole || piece.find(character) != Text::npos;
        EXPECT_LE(utf8FromText(piece).size(), 75U);
      }
      EXPECT_TRUE(isWhole) << before << " " << ::testing::PrintToString(Text(character));
    }
  }
}

TEST(Folding, keepsFlagsInPairsOverManyLines) {
  const Text flag = u"\U0001F1E9\U0001F1EA";
  const TextList pieces = piecesOf(Text(u"x") + repeated(flag, 100));
  EXPECT_EQ(pieces.front(), Text(u"x") + repeated(flag, 9));
  for (std::size_t i = 1; i + 1 < pieces.size(); ++i) {
    EXPECT_EQ(pieces[i], repeated(flag, 9));
  }
}

TEST(Folding, takesCrLfForOneCharacter) {
  EXPECT_EQ(folded(Text(74, u'x') + u"\r\ny"), Text(74, u'x') + u"\r\n \r\ny\r\n");
  EXPECT_EQ(folded(Text(73, u'x') + u"\r\ny"), Text(73, u'x') + u"\r\n\r\n y\r\n");
  EXPECT_EQ(folded(Text(74, u'x') + u"\n\ry"), Text(74, u'x') + u"\n\r\n \ry\r\n");
}

TEST(Folding, putsACharacterLongerThanALineOnALineAlone) {
  const Text tall = Text(u"e") + repeated(u"\u0301", 50);
  EXPECT_EQ(piecesOf(tall), TextList{tall});
  EXPECT_EQ(piecesOf(tall + u"y"), (TextList{tall, u"y"}));
  EXPECT_EQ(piecesOf(u"x" + tall + u"y"), (TextList{u"x", tall, u"y"}));
  EXPECT_EQ(piecesOf(u"x" + tall + tall), (TextList{u"x", tall, tall}));
  EXPECT_EQ(piecesOf(tall + Text(75, u'z')), (TextList{tall, Text(74, u'z'), u"z"}));
}

TEST(Folding, appendsBehindWhatIsThere) {
  Text output = u"before\r\n";
  appendFolded(output, u"A:1");
  EXPECT_EQ(output, u"before\r\nA:1\r\n");
}

TEST(FoldingTail, foldsTheEndOfATextInPlace) {
  for (const Text& line : {Text(), Text(u"A:1"), Text(75, u'x'), Text(76, u'x'), Text(400, u'x'),
                           repeated(u"\u00E9", 37), repeated(u"\u00E9", 38)}) {
    Text text = u"before\r\n" + line;
    foldTail(text, 8);
    EXPECT_EQ(text, Text(u"before\r\n") + folded(line));
  }
}

/// What ICU takes for characters, over the whole text at once.
std::vector<std::size_t> characterEnds(TextView text) {
  UErrorCode status = U_ZERO_ERROR;
  static const std::unique_ptr<UBreakIterator, void (*)(UBreakIterator*)> iterator(
      ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status), ubrk_close);
  ubrk_setText(iterator.get(), reinterpret_cast<const UChar*>(text.data()),
               static_cast<int32_t>(text.size()), &status);
  EXPECT_TRUE(U_SUCCESS(status));
  std::vector<std::size_t> ends;
  for (int32_t end = ubrk_next(iterator.get()); end != UBRK_DONE; end = ubrk_next(iterator.get())) {
    ends.push_back(static_cast<std::size_t>(end));
  }
  return ends;
}

Text slowlyFolded(TextView line) {
  Text output;
  Text physical;
  std::size_t bytes = 0;
  std::size_t limit = 75;
  const auto emit = [&] {
    output.append(limit == 75 ? u"" : u" ").append(physical).append(u"\r\n");
    physical.clear();
    bytes = 0;
    limit = 74;
  };
  std::size_t begin = 0;
  for (const std::size_t end : characterEnds(line)) {
    const Text character(line.substr(begin, end - begin));
    // Lone surrogates are encoded as U+FFFD here, which takes three bytes too.
    const std::size_t length = utf8FromText(character).size();
    if (!physical.empty() && bytes + length > limit) {
      emit();
    }
    physical += character;
    bytes += length;
    begin = end;
  }
  if (!physical.empty() || line.empty()) {
    emit();
  }
  return output;
}

TEST(Folding, agreesWithASlowWalkOverRandomTexts) {
  constexpr std::array<TextView, 40> kPieces = {
      u"a",          u"b",      u" ",          u"-",          u"\r",         u"\n",
      u"\r\n",       u"\t",     u"\u00E9",     u"\u00DF",     u"\u0301",     u"\u0308",
      u"\u200D",     u"\uFE0F", u"\u20E3",     u"\u0915",     u"\u094D",     u"\u0937",
      u"\u093F",     u"\u05D0", u"\u05B8",     u"\u0627",     u"\u064B",     u"\u0E01",
      u"\u0E33",     u"\u1112", u"\u1161",     u"\u11AB",     u"\uAC00",     u"\u4E2D",
      u"\u3042",     u"\u3099", u"\U0001F600", u"\U0001F3FD", u"\U0001F469", u"\U0001F1E9",
      u"\U0001F1EA", u"\u0600", u"\xD83D",     u"\xDE00"};
  const std::uint64_t seed = testSeed();
  RandomSource random(seed);
  for (int round = 0; round < 8'000; ++round) {
    Text line;
    for (std::size_t runs = random.below(8); runs > 0; --runs) {
      // Runs of ASCII, of one kind, or of anything.
      const std::size_t kind = random.below(3);
      const TextView same = random.oneOf(kPieces);
      for (std::size_t length = random.below(90); length > 0; --length) {
        line += kind == 0 ? TextView(u"x") : kind == 1 ? same : random.oneOf(kPieces);
      }
    }
    const Text expected = slowlyFolded(line);
    ASSERT_EQ(folded(line), expected) << "seed " << seed << ": " << ::testing::PrintToString(line);
    Text tail = u"x\r\n" + line;
    foldTail(tail, 3);
    ASSERT_EQ(tail, u"x\r\n" + expected)
        << "seed " << seed << ": " << ::testing::PrintToString(line);
  }
}

} // namespace
} // namespace cardwright
