#include "base/ascii.h"
#include "base/graphemes.h"
#include "base/never_joining.h"
#include "support/code_point_name.h"
#include "support/seed.h"
#include "support/text_printer.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>
#include <unicode/ubrk.h>
#include <unicode/uchar.h>

#include <iterator>
#include <memory>
#include <random>
#include <set>
#include <thread>
#include <vector>

namespace cardwright {
namespace {

/// Where ICU sees the characters of a text begin, and the text's end.
std::vector<std::size_t> boundariesByIcu(TextView text) {
  UErrorCode status = U_ZERO_ERROR;
  static const std::unique_ptr<UBreakIterator, void (*)(UBreakIterator*)> iterator(
      ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status), ubrk_close);
  ubrk_setText(iterator.get(), reinterpret_cast<const UChar*>(text.data()),
               static_cast<int32_t>(text.size()), &status);
  EXPECT_TRUE(U_SUCCESS(status));
  std::vector<std::size_t> boundaries;
  for (int32_t at = ubrk_first(iterator.get()); at != UBRK_DONE; at = ubrk_next(iterator.get())) {
    boundaries.push_back(static_cast<std::size_t>(at));
  }
  return boundaries;
}

std::vector<std::size_t> boundariesByWalker(TextView text) {
  std::vector<std::size_t> boundaries = {0};
  for (GraphemeWalker walker(text); !walker.atEnd();) {
    boundaries.push_back(walker.next());
    EXPECT_EQ(boundaries.back(), walker.position());
  }
  return boundaries;
}

/// What a text of joining characters is made of.
const std::vector<Text>& pieces() {
  static const std::vector<Text> all = {
      u"a", u":", u";", u"=", u"\"", u"\\", u" ", u"\t", u"0", u"\r", u"\n", u"\r\n", u"\v",
      u"\u0085", u"\u00AD", u"\u200B", u"\u2028",
      // Letters at the ends of the ranges that join nothing
      u"\u02FF", u"\u0370", u"\u0378", u"\u0482", u"\u4E00", u"\u9FFF", u"\uA000", u"\u4DFF",
      // Marks that join what stands before them
      u"\u0300", u"\u0301", u"\u036F", u"\u0483", u"\u0489", u"\u20DD", u"\uFE0E", u"\uFE0F",
      u"\u200C", u"\u200D", u"\U000E0100", u"\U000E0067", u"\U000E007F", u"\u20E3", u"\uFF9E",
      // Emoji, those of the lower planes among them
      u"\u00A9", u"\u00AE", u"\u2764", u"\u231A", u"\U0001F600", u"\U0001F468", u"\U0001F469",
      u"\U0001F3F4", u"\U0001F3FB", u"\U0001F3FF", u"\U0001F308", u"\U0001F9D1\u200D",
      // Flags
      u"\U0001F1E6", u"\U0001F1E9", u"\U0001F1EA", u"\U0001F1FF",
      // Hangul
      u"\u1100", u"\uA960", u"\u1161", u"\uD7B0", u"\u11A8", u"\uD7CB", u"\uAC00", u"\uAC01",
      // Indic and Thai clusters, and signs that join what stands behind them
      u"\u0915", u"\u094D", u"\u0937", u"\u093F", u"\u0903", u"\u0B95", u"\u0BBF", u"\u0E01",
      u"\u0E33", u"\u0600", u"\u06DD", u"\u0D4E", u"\U000110BD", u"\U00011F02",
      // Halves of pairs
      Text(1, char16_t{0xD800}), Text(1, char16_t{0xD83D}), Text(1, char16_t{0xDBFF}),
      Text(1, char16_t{0xDC00}), Text(1, char16_t{0xDE00}), Text(1, char16_t{0xDFFF})};
  return all;
}

class TextMaker {
 public:
  explicit TextMaker(std::uint64_t seed) : m_random(seed) {}

  std::size_t below(std::size_t limit) { return m_random() % limit; }

  Text next() {
    Text text;
    const std::size_t count = below(24);
    // Few kinds in one text, so that long runs of one kind and their ends come up often.
    const std::size_t kinds = 1 + below(5);
    std::vector<Text> chosen;
    std::generate_n(std::back_inserter(chosen), kinds,
                    [this] { return pieces()[below(pieces().size())]; });
    for (std::size_t i = 0; i < count; ++i) {
      text += chosen[below(kinds)];
    }
    return text;
  }

 private:
  std::mt19937_64 m_random;
};

void expectIcusCharacters(const Text& text) {
  const std::vector<std::size_t> expected = boundariesByIcu(text);
  ASSERT_EQ(boundariesByWalker(text), expected) << testing::PrintToString(text);
  for (std::size_t i = 0; i + 1 < expected.size(); ++i) {
    ASSERT_EQ(endOfCharacter(text, expected[i]), expected[i + 1])
        << testing::PrintToString(text) << " at " << expected[i];
  }
  if (!text.empty()) {
    ASSERT_EQ(startOfLastCharacter(text), expected[expected.size() - 2])
        << testing::PrintToString(text);
  }
  const std::set<std::size_t> boundaries(expected.begin(), expected.end());
  for (std::size_t i = 0; i < text.size(); ++i) {
    ASSERT_EQ(isCharacterByItself(text, i), boundaries.contains(i) && boundaries.contains(i + 1))
        << testing::PrintToString(text) << " at " << i;
  }
}

TEST(Graphemes, areWhatAReaderSeesAsOneCharacter) {
  struct Row {
    Text text;
    std::vector<std::size_t> boundaries;
  };
  const Row kRows[] = {
      {u"", {0}},
      {u"ab", {0, 1, 2}},
      {u"\r\n\n\r", {0, 2, 3, 4}},
      {u":\u0301:", {0, 2, 3}},
      {u"e\u0301\u0323x", {0, 3, 4}},
      {u"\U0001F468\u200D\U0001F469\u200D\U0001F467!", {0, 8, 9}},
      {u"\U0001F44B\U0001F3FD", {0, 4}},
      {u"\U0001F1E9\U0001F1EA\U0001F1E6\U0001F1F9\U0001F1E8", {0, 4, 8, 10}},
      {u"\u1112\u1161\u11AB\u1100", {0, 3, 4}},
      {u"\u0928\u093F", {0, 2}},
      {u"\u06001", {0, 2}},
      {Text{char16_t{0xD83D}, u'\u0301'}, {0, 2}},
      {Text{u'a', char16_t{0xDE00}, char16_t{0xD83D}}, {0, 1, 2, 3}},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(boundariesByWalker(row.text), row.boundaries) << testing::PrintToString(row.text);
    expectIcusCharacters(row.text);
  }
}

TEST(Graphemes, agreeWithIcuOnAllPairsOfPieces) {
  for (const Text& first : pieces()) {
    for (const Text& second : pieces()) {
      expectIcusCharacters(first + second);
    }
  }
}

TEST(Graphemes, agreeWithIcuOnAllTriplesOfPieces) {
  for (const Text& first : pieces()) {
    for (const Text& second : pieces()) {
      for (const Text& third : pieces()) {
        const Text text = first + second + third;
        ASSERT_EQ(boundariesByWalker(text), boundariesByIcu(text)) << testing::PrintToString(text);
      }
    }
  }
}

TEST(Graphemes, agreeWithIcuOnGeneratedTexts) {
  TextMaker maker(testSeed());
  for (int i = 0; i < (kTimesAreMeaningful ? 40'000 : 4'000); ++i) {
    expectIcusCharacters(maker.next());
    if (HasFatalFailure()) {
      return;
    }
  }
}

TEST(Graphemes, agreeWithIcuOnLongRuns) {
  TextMaker maker(testSeed());
  for (const Text& piece : pieces()) {
    Text text = maker.next();
    for (int i = 0; i < 100; ++i) {
      text += piece;
    }
    text += maker.next();
    expectIcusCharacters(text);
  }
}

TEST(GraphemeWalker, sharesItsIteratorWithOthers) {
  TextMaker maker(testSeed());
  for (int i = 0; i < 4'000; ++i) {
    const std::vector<Text> texts = {maker.next(), maker.next(), maker.next()};
    std::vector<GraphemeWalker> walkers(texts.begin(), texts.end());
    std::vector<std::vector<std::size_t>> boundaries(texts.size(), {0});
    while (!walkers[0].atEnd() || !walkers[1].atEnd() || !walkers[2].atEnd()) {
      const std::size_t which = maker.below(walkers.size());
      if (!walkers[which].atEnd()) {
        boundaries[which].push_back(walkers[which].next());
      }
      if (maker.below(4) == 0 && !texts[which].empty()) {
        (void)startOfLastCharacter(texts[which]);
      }
    }
    for (std::size_t which = 0; which < texts.size(); ++which) {
      ASSERT_EQ(boundaries[which], boundariesByIcu(texts[which]))
          << testing::PrintToString(texts[which]);
    }
  }
}

TEST(GraphemeWalker, worksInSeveralThreadsAtOnce) {
  std::vector<std::thread> threads;
  std::vector<int> wrong(4);
  for (std::size_t thread = 0; thread < wrong.size(); ++thread) {
    threads.emplace_back([&wrong, thread] {
      Text text;
      for (int i = 0; i < 2'000; ++i) {
        text += u"e\u0301\U0001F1E9\U0001F1EA";
      }
      GraphemeWalker walker(text);
      for (std::size_t expected = 0; !walker.atEnd();) {
        expected += expected % 6 == 0 ? 2 : 4;
        wrong[thread] += walker.next() != expected;
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(wrong, std::vector<int>(4));
}

TEST(Graphemes, knowUnitsThatNeverJoin) {
  for (char32_t c = 0; c < 0x10000; ++c) {
    if (!neverJoins(static_cast<char16_t>(c))) {
      continue;
    }
    const auto property =
        u_getIntPropertyValue(static_cast<UChar32>(c), UCHAR_GRAPHEME_CLUSTER_BREAK);
    EXPECT_TRUE(property == U_GCB_OTHER || property == U_GCB_CONTROL || property == U_GCB_LV ||
                property == U_GCB_LVT || c == u'\r' || c == u'\n')
        << codePointName(c);
  }
}

TEST(Graphemes, neverJoinAnyPairOfSuchUnits) {
  // Each of them with itself, with its neighbours and with units of each kind.
  TextList others = {Text(1, u'\0'), u"\n", u"\r", u"a", u"\u00A9", u"\u00AD"};
  for (const UnitRange& range : kNeverJoining) {
    others.emplace_back(1, range.first);
    others.emplace_back(1, range.last);
  }
  Text text;
  for (const UnitRange& range : kNeverJoining) {
    for (std::size_t unit = range.first; unit <= range.last; ++unit) {
      for (const Text& other : others) {
        const auto self = static_cast<char16_t>(unit);
        if (self != u'\r' && self != u'\n') {
          text.append({self, self}).append(other).append({self, u' '});
        }
      }
    }
  }
  const std::vector<std::size_t> boundaries = boundariesByIcu(text);
  ASSERT_EQ(boundaries.size(), text.size() + 1);
  EXPECT_EQ(boundariesByIcu(u"\r\n").size(), 2U);
}

TEST(Graphemes, takeLinearTime) {
  const Text hostile[] = {u"\u0301", u"\U0001F1E9", u"\U0001F468\u200D", u":\u0301", u"\u1100",
                          u"\u3000", u"\u0600"};
  for (const Text& piece : hostile) {
    const auto repeated = [&piece](std::size_t size) {
      Text text;
      while (text.size() < size) {
        text += piece;
      }
      return text;
    };
    expectLinear(250'000, [&](std::size_t size) {
      const Text text = repeated(size);
      for (GraphemeWalker walker(text); !walker.atEnd();) {
        walker.next();
      }
    });
    expectLinear(20'000, [&](std::size_t size) {
      const Text text = repeated(size);
      GraphemeWalker one(text);
      for (GraphemeWalker other(text); !other.atEnd();) {
        other.next();
        one.next();
      }
    });
  }
}

TEST(EndOfCharacter, looksNoFurtherThanTheCharacter) {
  expectLinear(20'000, [](std::size_t size) {
    Text text;
    for (std::size_t i = 0; i < size; ++i) {
      text += u"\U0001F1E9\U0001F1EA";
    }
    for (std::size_t at = 0; at < text.size();) {
      at = endOfCharacter(text, at);
    }
  });
}

TEST(StartOfLastCharacter, trimsALongRunInLinearTime) {
  for (const Text& piece :
       {Text(u"\u3000"), Text(u"\u2003\u0301"), Text(u"\uAC00\u11A8"), Text(u"\U0001F600\u200D")}) {
    expectLinear(20'000, [&piece](std::size_t size) {
      Text text;
      for (std::size_t i = 0; i < size; ++i) {
        text += piece;
      }
      while (!text.empty()) {
        text.resize(startOfLastCharacter(text));
      }
    });
  }
}

TEST(IsCharacterByItself, looksAtTheNeighboursOfASignOnly) {
  expectLinear(20'000, [](std::size_t size) {
    Text text;
    for (std::size_t i = 0; i < size; ++i) {
      text += u":\u0301";
    }
    std::size_t alone = 0;
    for (std::size_t at = 0; at < text.size(); at += 2) {
      alone += isCharacterByItself(text, at) ? 1U : 0U;
    }
    EXPECT_EQ(alone, 0U);
  });
}

} // namespace
} // namespace cardwright
