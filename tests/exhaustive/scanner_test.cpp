#include "cardwright/text_scanner.h"
#include "exhaustive/reference_scanner.h"
#include "exhaustive/short_texts.h"
#include "reader/line_scanner.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

namespace cardwright {
namespace {

/// Reads all lines of the text, passing over one unit wherever there is none.
void expectLikeTheReference(const Text& text) {
  TextScanner scanner(text);
  ReferenceScanner reference(text, 0);
  LineScanner lines(text, 0);
  while (!scanner.isAtEnd()) {
    const Text expected = reference.next();
    Text line;
    LogicalLine logical;
    ASSERT_EQ(scanner.scanFoldedLineIntoString(&line), !expected.empty());
    ASSERT_EQ(line, expected);
    ASSERT_EQ(scanner.scanLocation(), reference.location());
    ASSERT_EQ(lines.next(logical), !expected.empty());
    ASSERT_EQ(lines.location(), reference.location());
    if (!expected.empty()) {
      ASSERT_EQ(logical.text, expected);
    } else if (!scanner.isAtEnd()) {
      scanner.setScanLocation(scanner.scanLocation() + 1);
      reference = ReferenceScanner(text, scanner.scanLocation());
      lines = LineScanner(text, scanner.scanLocation());
    }
  }
}

/// Tries every short text between the two.
void tryBetween(TextView before, TextView after) {
  forEachShortText([&](const Text& part) {
    if (!testing::Test::HasFailure()) {
      const Text text = Text(before).append(part).append(after);
      expectLikeTheReference(text);
      EXPECT_FALSE(testing::Test::HasFailure()) << testing::PrintToString(text);
    }
  });
}

TEST(ExhaustiveScanner, readsLinesLikeTheReferenceAlone) {
  tryBetween(u"", u"");
}

TEST(ExhaustiveScanner, readsLinesLikeTheReferenceInAHeader) {
  tryBetween(u"A;ENCODING=QUOTED-PRINTABLE", u"=\r\nA");
}

TEST(ExhaustiveScanner, readsLinesLikeTheReferenceInAQuotedParameter) {
  tryBetween(u"A;A=\"", u"\";encoding=quoted-printable:=\nA");
}

TEST(ExhaustiveScanner, readsLinesLikeTheReferenceInAQuotedPrintableValue) {
  tryBetween(u"A;ENCODING=QUOTED-PRINTABLE:1=", u"=\r\n=");
}

TEST(ExhaustiveScanner, readsLinesLikeTheReferenceBeforeABoundary) {
  tryBetween(u"A;ENCODING=QUOTED-PRINTABLE:1=", u"end:vcard \r\nA");
}

TEST(ExhaustiveScanner, readsLinesLikeTheReferenceBeforeAKnownProperty) {
  tryBetween(u"A;ENCODING=QUOTED-PRINTABLE:1=", u"TEL;A:1");
}

TEST(ExhaustiveScanner, readsLinesLikeTheReferenceBeforeAnAddressBookServerProperty) {
  tryBetween(u"A.X-ADDRESSBOOKSERVER-A:1", u"x-addressbookserver-b:2");
}

TEST(ExhaustiveScanner, readsLinesLikeTheReferenceBetweenAddressBookServerProperties) {
  tryBetween(u"X-ADDRESSBOOKSERVER-A:1\r\n ", u"X-ADDRESSBOOKSERVER-B:2\r\n :");
}

} // namespace
} // namespace cardwright
