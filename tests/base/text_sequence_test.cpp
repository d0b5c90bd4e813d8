#include "cardwright/detail/text_sequence.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

namespace cardwright::detail {
namespace {

TextList textsOf(const TextSequence& sequence) {
  TextList texts;
  for (std::size_t i = 0; i < sequence.size(); ++i) {
    texts.emplace_back(sequence[i].view());
  }
  return texts;
}

TextSequence sequenceOf(const TextList& texts) {
  TextSequence sequence;
  for (const Text& text : texts) {
    sequence.push_back(TextStorage(TextView(text)));
  }
  return sequence;
}

TEST(TextSequence, keepsTextsInOrder) {
  EXPECT_TRUE(TextSequence().empty());
  EXPECT_EQ(TextSequence().size(), 0U);
  for (const TextList& texts : {TextList{u""}, TextList{u"a"}, TextList{u"a", u"", u"c"}}) {
    EXPECT_FALSE(sequenceOf(texts).empty());
    EXPECT_EQ(textsOf(sequenceOf(texts)), texts);
  }
}

TEST(TextSequence, takesWhatAnotherHolds) {
  TextSequence sequence;
  sequence.take(TextSequence());
  EXPECT_TRUE(sequence.empty());
  sequence.take(sequenceOf({u"a", u"b"}));
  sequence.take(sequenceOf({u"c"}));
  sequence.take(sequenceOf({u"d", u"e", u"f"}));
  EXPECT_EQ(textsOf(sequence), (TextList{u"a", u"b", u"c", u"d", u"e", u"f"}));
}

} // namespace
} // namespace cardwright::detail
