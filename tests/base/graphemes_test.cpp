#include "base/graphemes.h"

#include <gtest/gtest.h>
#include <unicode/ubrk.h>

#include <memory>
#include <random>
#include <vector>

namespace cardwright {
namespace {

using Boundaries = std::vector<std::size_t>;

Boundaries boundariesByIcu(TextView text) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UBreakIterator, void (*)(UBreakIterator*)> iterator(
      ubrk_open(UBRK_CHARACTER, "", reinterpret_cast<const UChar*>(text.data()),
                static_cast<int32_t>(text.size()), &status),
      ubrk_close);
  Boundaries result;
  for (int32_t end = ubrk_next(iterator.get()); end != UBRK_DONE; end = ubrk_next(iterator.get())) {
    result.push_back(static_cast<std::size_t>(end));
  }
  return result;
}

Boundaries boundariesByWalking(TextView text) {
  Boundaries result;
  GraphemeWalker walker(text);
  while (!walker.atEnd()) {
    result.push_back(walker.next());
  }
  return result;
}

/// At least one character of every kind that the rules know.
const Text kKinds[] = {
    u"a",      u":",      u"\r",     u"\n",         u"\u0007",     u"\u00A0",     u"\u2028",
    u"\u00A9", u"\u0301", u"\u0308", u"\u200D",     u"\u200C",     u"\u0903",     u"\u0E33",
    u"\u0600", u"\u06DD", u"\u1100", u"\u1161",     u"\u11A8",     u"\uAC00",     u"\uAC01",
    u"\u0915", u"\u094D", u"\u0937", u"\u093C",     u"\u0995",     u"\u09CD",     u"\u0414",
    u"\u4E00", u"\u2764", u"\uFE0F", u"\U0001F468", u"\U0001F3FD", u"\U0001F1E9", u"\U0001D400",
    u"\uFF21", u"\u180E", u"\u05D0"};

Text anyKind(std::mt19937& random) {
  const std::size_t count = std::size(kKinds) + 2;
  const std::size_t kind = random() % count;
  // Lone surrogates cannot be written as literals.
  return kind < std::size(kKinds)
             ? kKinds[kind]
             : Text(1, kind == count - 1 ? char16_t{0xD83D} : char16_t{0xDC4D});
}

TEST(GraphemeWalker, findsTheBoundariesOfIcu) {
  std::mt19937 random(7);
  for (int round = 0; round < 100000; ++round) {
    Text text;
    for (std::size_t length = 1 + random() % 8; length > 0; --length) {
      text += anyKind(random);
    }
    const Boundaries expected = boundariesByIcu(text);
    ASSERT_EQ(boundariesByWalking(text), expected) << testing::PrintToString(text);
    const std::size_t last = expected.size() < 2 ? 0 : expected[expected.size() - 2];
    ASSERT_EQ(startOfLastCharacter(text), last) << testing::PrintToString(text);
    std::size_t begin = 0;
    for (const std::size_t end : expected) {
      ASSERT_EQ(endOfCharacter(text, begin), end) << testing::PrintToString(text);
      for (std::size_t at = begin; at < end; ++at) {
        ASSERT_EQ(isCharacterByItself(text, at), end - begin == 1) << testing::PrintToString(text);
      }
      begin = end;
    }
  }
}

TEST(GraphemeWalker, walksSideBySideWithAnother) {
  const Text flags = u"\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7\U0001F1EE";
  GraphemeWalker one(flags);
  GraphemeWalker other(flags);
  EXPECT_EQ(one.next(), 4U);
  EXPECT_EQ(other.next(), 4U);
  EXPECT_EQ(one.next(), 8U);
  EXPECT_EQ(one.next(), 10U);
  EXPECT_EQ(other.next(), 8U);
}

TEST(IsCharacterByItself, looksNoFurtherThanItsNeighboursForAscii) {
  // A run in which nearly everything joins: asking for each colon is still linear.
  Text text;
  while (text.size() < 400000) {
    text += u":\u0301\u0600";
  }
  std::size_t alone = 0;
  for (std::size_t at = 0; at < text.size(); at += 3) {
    alone += isCharacterByItself(text, at) ? 1U : 0U;
  }
  EXPECT_EQ(alone, 0U);
}

} // namespace
} // namespace cardwright
