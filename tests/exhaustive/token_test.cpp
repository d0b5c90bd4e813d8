#include "cardwright/text_scanner.h"
#include "cardwright/vcard_utilities.h"
#include "exhaustive/reference_codec.h"
#include "exhaustive/reference_content_line.h"
#include "exhaustive/short_texts.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace cardwright {
namespace {

TEST(ExhaustiveToken, isReadLikeTheReference) {
  forEachShortText([](const Text& text) {
    for (const TextView delimiters : {u";:", u"=;:", u",;:", u"\"\\", u"A", u""}) {
      for (const bool endIsEnough : {false, true}) {
        ReferenceContentLine reference;
        reference.setRest(text);
        const auto expected = reference.token(delimiters, endIsEnough);
        TextScanner scanner{TextView(text)};
        Text token = u"before";
        ASSERT_EQ(scanner.scanQuotedStringOrUptoDelimiters(delimiters, &token, endIsEnough),
                  expected.has_value())
            << testing::PrintToString(text) << testing::PrintToString(delimiters) << endIsEnough;
        ASSERT_EQ(token, expected.value_or(u"before"))
            << testing::PrintToString(text) << testing::PrintToString(delimiters) << endIsEnough;
        if (expected) {
          ASSERT_EQ(scanner.scanLocation(), text.size() - reference.rest().size())
              << testing::PrintToString(text) << testing::PrintToString(delimiters) << endIsEnough;
        }
      }
    }
  });
}

TEST(ExhaustiveDelimiter, isFoundLikeTheReferenceInEveryRange) {
  forEachShortText([](const Text& text) {
    for (std::size_t begin = 0; begin <= text.size(); ++begin) {
      for (std::size_t length = 0; begin + length <= text.size(); ++length) {
        const Text part = text.substr(begin, length);
        for (const char16_t delimiter : {u',', u';'}) {
          const std::size_t front = ReferenceCodec::pieces(part, delimiter).front().size();
          const TextRange expected =
              front < part.size() ? TextRange{begin + front, 1} : TextRange{};
          ASSERT_EQ(VCardUtilities::rangeOfUnescapedDelimiter(text, delimiter, {begin, length}),
                    expected)
              << testing::PrintToString(text) << begin << " " << length;
        }
      }
    }
  });
}

} // namespace
} // namespace cardwright
