#include "cardwright/text_scanner.h"
#include "cardwright/vcard_utils.h"
#include "reader/line_scanner.h"
#include "support/random_source.h"
#include "support/seed.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace cardwright {
namespace {

TextList logicalLines(TextView text) {
  TextScanner scanner(text);
  TextList lines;
  Text line;
  while (scanner.scanFoldedLineIntoString(&line)) {
    lines.push_back(line);
  }
  return lines;
}

TEST(LineScanner, joinsContinuationsAndDropsOneBlankOfEach) {
  EXPECT_EQ(logicalLines(u"FN:John\r\n  Smith"), TextList{u"FN:John Smith"});
  EXPECT_EQ(logicalLines(u"FN:Jo\r\n hn\r\n\tSm\r\n \tith\r\n"), TextList{u"FN:JohnSm\tith"});
}

TEST(LineScanner, endsLinesAtCrLfAtCrAndAtLf) {
  EXPECT_EQ(logicalLines(u"A:1\r\nB:2\rC:3\nD:4\r\r\nE:5"),
            (TextList{u"A:1", u"B:2", u"C:3", u"D:4", u"E:5"}));
}

TEST(LineScanner, passesOverBlankLines) {
  EXPECT_EQ(logicalLines(u"A:1\r\n\r\n\r\n\r\nB:2"), (TextList{u"A:1", u"B:2"}));
}

TEST(LineScanner, leavesTheLocationAtTheNextLine) {
  TextScanner scanner(TextView(u"A:1\r\n 2\r\n\r\nB:3"));
  Text line;
  ASSERT_TRUE(scanner.scanFoldedLineIntoString(&line));
  EXPECT_EQ(scanner.scanLocation(), 11U);
}

TEST(LineScanner, failsWhereNothingCanBeRead) {
  for (const TextView text : {TextView(u""), TextView(u"\r\n"), TextView(u"\n A:1")}) {
    TextScanner scanner(text);
    Text line = u"untouched";
    EXPECT_FALSE(scanner.scanFoldedLineIntoString(&line));
    EXPECT_EQ(line, u"untouched");
    EXPECT_EQ(scanner.scanLocation(), 0U);
  }
  TextScanner behindTheEnd(TextView(u"A:1"));
  behindTheEnd.setScanLocation(7);
  EXPECT_FALSE(behindTheEnd.scanFoldedLineIntoString(nullptr));
  EXPECT_EQ(behindTheEnd.scanLocation(), 7U);
}

TEST(LineScanner, keepsBlanksAtTheStartOfTheFirstLine) {
  EXPECT_EQ(logicalLines(u"  A:1"), TextList{u"  A:1"});
}

TEST(LineScanner, letsAnEmptyContinuationTakeTheNextLineAlong) {
  EXPECT_EQ(logicalLines(u"NOTE:a\r\n \r\nTEL:1\r\nB:2"), (TextList{u"NOTE:aTEL:1", u"B:2"}));
  EXPECT_EQ(logicalLines(u"NOTE:a\r\n\t\r\n\r\nb"), TextList{u"NOTE:ab"});
  EXPECT_EQ(logicalLines(u"NOTE:a\r\n "), TextList{u"NOTE:a"});
}

TEST(LineScanner, joinsSoftBreakWithoutIndentation) {
  EXPECT_EQ(logicalLines(u"NOTE;ENCODING=QUOTED-PRINTABLE:abc=\r\ndef"),
            TextList{u"NOTE;ENCODING=QUOTED-PRINTABLE:abcdef"});
  EXPECT_EQ(logicalLines(u"NOTE;encoding=Quoted-Printable:a= \t\r\nb=\nc\r\nTEL:1"),
            (TextList{u"NOTE;encoding=Quoted-Printable:abc", u"TEL:1"}));
}

TEST(LineScanner, joinsSoftBreakWithIndentation) {
  EXPECT_EQ(logicalLines(u"NOTE;ENCODING=QUOTED-PRINTABLE:a=\r\n b=\r\nc"),
            TextList{u"NOTE;ENCODING=QUOTED-PRINTABLE:abc"});
}

TEST(LineScanner, removesOneEqualsSignOnly) {
  EXPECT_EQ(logicalLines(u"NOTE;ENCODING=QUOTED-PRINTABLE:a==\r\nb"),
            TextList{u"NOTE;ENCODING=QUOTED-PRINTABLE:a=b"});
}

TEST(LineScanner, goesOnBehindBlankLinesAfterSoftBreak) {
  EXPECT_EQ(logicalLines(u"NOTE;ENCODING=QUOTED-PRINTABLE:a=\r\n\r\nb"),
            TextList{u"NOTE;ENCODING=QUOTED-PRINTABLE:ab"});
}

TEST(LineScanner, endsTornValueBeforeWhatMustBeALineOfItsOwn) {
  const Text note = u"NOTE;ENCODING=QUOTED-PRINTABLE:abc";
  for (const TextView next :
       {TextView(u"TEL:123"), TextView(u"END:VCARD"), TextView(u"begin:vcard"),
        TextView(u"item1.TEL;TYPE=x:1"), TextView(u"org-directory:x")}) {
    EXPECT_EQ(logicalLines(note + u"=\r\n" + Text(next)), (TextList{note, Text(next)}));
    EXPECT_EQ(logicalLines(note + u"=\r\n\r\n" + Text(next)), (TextList{note, Text(next)}));
  }
  EXPECT_EQ(logicalLines(note + u"=\r\n\r\n"), TextList{note});
  EXPECT_EQ(logicalLines(note + u"="), TextList{note});
}

TEST(LineScanner, goesOnWithLinesThatMayBeText) {
  const Text note = u"NOTE;ENCODING=QUOTED-PRINTABLE:abc";
  for (const TextView next : {TextView(u"X-FOO:1"), TextView(u"END:VCARD x"), TextView(u"TEL 1"),
                              TextView(u":TEL:1"), TextView(u"MY TEL:1")}) {
    EXPECT_EQ(logicalLines(note + u"=\r\n" + Text(next)), TextList{note + Text(next)});
  }
}

TEST(LineScanner, doesNotKnowTheBareQuotedPrintableToken) {
  EXPECT_EQ(logicalLines(u"NOTE;QUOTED-PRINTABLE:abc=\r\ndef"),
            (TextList{u"NOTE;QUOTED-PRINTABLE:abc=", u"def"}));
}

TEST(LineScanner, looksForTheHeaderUpToTheFirstColonOutsideQuotes) {
  EXPECT_EQ(logicalLines(u"X-A;X-LABEL=\"a:b\";ENCODING=QUOTED-PRINTABLE:v=\r\nw"),
            TextList{u"X-A;X-LABEL=\"a:b\";ENCODING=QUOTED-PRINTABLE:vw"});
  EXPECT_EQ(logicalLines(u"X-A:ENCODING=QUOTED-PRINTABLE:v=\r\nw"),
            (TextList{u"X-A:ENCODING=QUOTED-PRINTABLE:v=", u"w"}));
  EXPECT_EQ(logicalLines(u"X-A;X-LABEL=\"a:ENCODING=QUOTED-PRINTABLE:v=\r\nw"),
            (TextList{u"X-A;X-LABEL=\"a:ENCODING=QUOTED-PRINTABLE:v=", u"w"}));
}

TEST(LineScanner, readsAFoldedHeaderAsAWhole) {
  EXPECT_EQ(logicalLines(u"NOTE;ENCODING=QUOTED-\r\n PRINTABLE:a=\r\nb"),
            TextList{u"NOTE;ENCODING=QUOTED-PRINTABLE:ab"});
  EXPECT_EQ(logicalLines(u"NOTE;X=\"a:\r\n b\";ENCODING=QUOTED-PRINTABLE\r\n :a=\r\nb"),
            TextList{u"NOTE;X=\"a:b\";ENCODING=QUOTED-PRINTABLE:ab"});
}

TEST(LineScanner, leavesAnEqualsSignAloneWhereNothingIsQuotedPrintable) {
  EXPECT_EQ(logicalLines(u"PHOTO;ENCODING=b:AAA=\r\n BBB=\r\nTEL:1"),
            (TextList{u"PHOTO;ENCODING=b:AAA=BBB=", u"TEL:1"}));
  EXPECT_EQ(logicalLines(u"no header=\r\nTEL:1"), (TextList{u"no header=", u"TEL:1"}));
}

TEST(LineScanner, readsWronglyIndentedAddressBookServerPropertyAsALine) {
  const Text first = u"X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1";
  const Text second = u"X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:2";
  EXPECT_EQ(logicalLines(first + u"\r\n " + second), (TextList{first, second}));
  EXPECT_EQ(logicalLines(first + u"\r\n\t \t" + second), (TextList{first, second}));
  EXPECT_EQ(logicalLines(u"item1." + first + u"\r\n item2.x-addressbookserver-kind:group"),
            (TextList{u"item1." + first, u"item2.x-addressbookserver-kind:group"}));

  TextScanner scanner(Text(first + u"\r\n   " + second));
  Text line;
  ASSERT_TRUE(scanner.scanFoldedLineIntoString(&line));
  EXPECT_EQ(scanner.scanLocation(), first.size() + 5);
}

TEST(LineScanner, joinsAddressBookServerTextThatIsNoPropertyOfItsOwn) {
  const Text member = u"X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1";
  EXPECT_EQ(logicalLines(u"NOTE:a\r\n " + member), TextList{u"NOTE:a" + member});
  EXPECT_EQ(logicalLines(member + u"\r\n abc"), TextList{member + u"abc"});
  EXPECT_EQ(logicalLines(member + u"\r\n X-ADDRESSBOOKSERVER-MEMBER"),
            TextList{member + u"X-ADDRESSBOOKSERVER-MEMBER"});
}

TEST(LineScanner, asksTheLastSegmentWhetherAnIndentedPropertyStandsAlone) {
  EXPECT_EQ(logicalLines(u"X-ADDRESSBOOKSERVER-A:1\r\n 2\r\n X-ADDRESSBOOKSERVER-B:3"),
            TextList{u"X-ADDRESSBOOKSERVER-A:12X-ADDRESSBOOKSERVER-B:3"});
}

TEST(LineScanner, keepsTheEqualsSignBeforeAnIndentedProperty) {
  const Text header = u"X-ADDRESSBOOKSERVER-A;ENCODING=QUOTED-PRINTABLE:";
  EXPECT_EQ(logicalLines(header + u"v=\r\n X-ADDRESSBOOKSERVER-B:1"),
            (TextList{header + u"v=", u"X-ADDRESSBOOKSERVER-B:1"}));
}

TEST(LineScanner, tellsWhereALineBeganAndCopiesOnlyJoinedOnes) {
  const Text text = u"A:1\r\n\r\nB:2\r\n 3\r\nNOTE;ENCODING=QUOTED-PRINTABLE:x=\r\n";
  LineScanner scanner(text, 0);
  LogicalLine line{};

  ASSERT_TRUE(scanner.next(line));
  EXPECT_EQ(line.begin, 0U);
  EXPECT_FALSE(line.isJoined);
  EXPECT_EQ(line.text.data(), text.data());

  ASSERT_TRUE(scanner.next(line));
  EXPECT_EQ(line.begin, 7U);
  EXPECT_TRUE(line.isJoined);
  EXPECT_EQ(line.text, u"B:23");

  ASSERT_TRUE(scanner.next(line));
  EXPECT_EQ(line.begin, 16U);
  EXPECT_FALSE(line.isJoined);
  EXPECT_EQ(line.text.data(), text.data() + 16);
  EXPECT_EQ(line.text, u"NOTE;ENCODING=QUOTED-PRINTABLE:x");

  EXPECT_FALSE(scanner.next(line));
}

/// The rules of a logical line, one after the other and without regard to speed.
bool slowLogicalLine(TextScanner& scanner, Text& result) {
  const CharacterSet& terminators = VCardUtils::lineTerminatorCharacterSet();
  Text line;
  bool headerIsKnown = false;
  bool isQuotedPrintable = false;
  TextView segment;
  while (scanner.scanUpToCharactersFromSet(terminators, &segment)) {
    line += segment;
    if (!headerIsKnown) {
      bool inQuotes = false;
      for (std::size_t at = 0; at < line.size() && !headerIsKnown; ++at) {
        inQuotes = (line[at] == u'"') != inQuotes;
        if (line[at] == u':' && !inQuotes) {
          headerIsKnown = true;
          Text header = line.substr(0, at);
          for (char16_t& unit : header) {
            unit = unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
          }
          isQuotedPrintable = header.find(u"ENCODING=QUOTED-PRINTABLE") != Text::npos;
        }
      }
    }
    const std::size_t last = segment.find_last_not_of(u" \t");
    const bool hasSoftBreak = isQuotedPrintable && last != TextView::npos && segment[last] == u'=';
    const auto trimSoftBreak = [&] {
      line.resize(line.find_last_not_of(u" \t") + 1);
      line.pop_back();
    };
    scanner.scanCharactersFromSet(terminators);
    if (scanner.scanString(u" ") || scanner.scanString(u"\t")) {
      std::size_t start = 0;
      if (VCardUtils::lineIsAddressBookServerProperty(segment) &&
          VCardUtils::lineBeginsWithAddressBookServerPropertyAtLocation(
              scanner, scanner.scanLocation(), &start)) {
        scanner.setScanLocation(start);
        break;
      }
      if (hasSoftBreak) {
        trimSoftBreak();
      }
      scanner.scanCharactersFromSet(terminators);
      continue;
    }
    if (!hasSoftBreak) {
      break;
    }
    trimSoftBreak();
    if (VCardUtils::nextLineIsVCardBoundaryAtLocation(scanner, scanner.scanLocation(),
                                                      terminators) ||
        VCardUtils::nextLineLooksLikeRecoverableStandalonePropertyAtLocation(
            scanner, scanner.scanLocation(), terminators,
            VCardUtils::headerWhitespaceCharacterSet())) {
      break;
    }
  }
  result = line;
  return !line.empty();
}

TEST(LineScanner, agreesWithTheSlowRulesOnRandomTexts) {
  constexpr std::array<TextView, 24> kPieces = {u"\r\n",
                                                u"\r\n",
                                                u"\n",
                                                u"\r",
                                                u" ",
                                                u" ",
                                                u"\t",
                                                u"=",
                                                u"=",
                                                u":",
                                                u"\"",
                                                u"a",
                                                u"\xE9",
                                                u";",
                                                u"NOTE;ENCODING=QUOTED-PRINTABLE:",
                                                u"n;encoding=quoted-printable:",
                                                u"TEL:1",
                                                u"END:VCARD",
                                                u"X-FOO:1",
                                                u"X-ADDRESSBOOKSERVER-M:1",
                                                u"item1.X-ADDRESSBOOKSERVER-M:",
                                                u"ENCODING=QUOTED-PRINTABLE",
                                                u"TEL",
                                                u"\xD800"};
  const std::uint64_t seed = testSeed();
  RecordProperty("seed", std::to_string(seed));
  RandomSource random(seed);
  for (int round = 0; round < 100'000; ++round) {
    Text text;
    for (std::size_t pieces = 1 + random.below(12); pieces > 0; --pieces) {
      text += random.oneOf(kPieces);
    }
    TextScanner scanner{TextView(text)};
    TextScanner slow{TextView(text)};
    for (int call = 0; call < 16; ++call) {
      Text line;
      Text expected;
      const bool found = scanner.scanFoldedLineIntoString(&line);
      ASSERT_EQ(found, slowLogicalLine(slow, expected))
          << "seed " << seed << ": " << ::testing::PrintToString(text);
      ASSERT_EQ(line, expected) << "seed " << seed << ": " << ::testing::PrintToString(text);
      ASSERT_EQ(scanner.scanLocation(), slow.scanLocation())
          << "seed " << seed << ": " << ::testing::PrintToString(text);
      if (!found) {
        break;
      }
    }
  }
}

} // namespace
} // namespace cardwright
