#include "cardwright/vcard_cleaner.h"
#include "support/address_book.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace cardwright {

struct VCardCleanerCounters {
  using Counters = std::tuple<std::int64_t, std::int64_t, std::int64_t>;

  /// Total, fast path, repaired.
  static Counters of(const VCardCleaner& cleaner) {
    return {cleaner.m_debugTotalLines, cleaner.m_debugFastPathLines, cleaner.m_debugSanitizedLines};
  }
};

namespace {

using Counters = VCardCleanerCounters::Counters;

const Text kSeparators = u"Normalized malformed CRCRLF separators";
const Text kMembers = u"Split numeric entities in X-ADDRESSBOOKSERVER-MEMBER";
const Text kExtracted = u"NOTE: extracted trailing allowlisted property";
const Text kDecoded = u"NOTE: decoded numeric entities";
const Text kDuplicates = u"Removed duplicate metadata properties";
const Text kGeneral = u"Performed vCard normalization";
const Text kMember = u"X-ADDRESSBOOKSERVER-MEMBER:";

Text split(TextView name) {
  return Text(u"Split merged properties starting at ").append(name);
}

Text trimmed(TextView name) {
  return Text(u"Trimmed dangling extended fragment after ").append(name);
}

Text joined(const TextList& lines, TextView lineEnd = u"\r\n") {
  Text text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    text.append(i == 0 ? TextView() : lineEnd).append(lines[i]);
  }
  return text;
}

/// A card of the lines without a line end behind it.
Text card(TextList lines, TextView lineEnd = u"\r\n") {
  lines.insert(lines.begin(), u"BEGIN:VCARD");
  lines.push_back(u"END:VCARD");
  return joined(lines, lineEnd);
}

Text note(std::size_t length) {
  return Text(u"NOTE:").append(length, u'a');
}

/// A line behind a fold.
Text later(std::size_t length) {
  return Text(1, u' ').append(length, u'a');
}

struct Row {
  TextList lines;
  TextList cleaned;
  TextList summaries;
};

void expectRows(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    VCardCleaner cleaner;
    EXPECT_EQ(cleaner.clean(card(row.lines)), card(row.cleaned));
    EXPECT_EQ(cleaner.lastCleaningSummaries(), row.summaries) << testing::PrintToString(row.lines);
    EXPECT_EQ(cleaner.lastDidClean(), !row.summaries.empty());
  }
}

void expectUntouched(const std::vector<Text>& texts) {
  for (const Text& text : texts) {
    VCardCleaner cleaner;
    EXPECT_EQ(cleaner.clean(text), text);
    EXPECT_FALSE(cleaner.lastDidClean()) << testing::PrintToString(text);
    EXPECT_EQ(cleaner.lastCleaningSummaries(), TextList());
    EXPECT_TRUE(cleaner.lastRepairs().empty());
  }
}

TEST(Cleaning, repairsACardFromEndToEnd) {
  const Text damaged =
      joined({u"BEGIN:VCARD", u"VERSION:3.0", u"FN:Jane Doe", u"TEL:+15550100EMAIL:x",
              u"NOTE:Call me&#13;&#10;later", u"END:VCARD", u""},
             u"\r\r\n");
  VCardCleaner cleaner;
  EXPECT_EQ(cleaner.clean(damaged), card({u"VERSION:3.0", u"FN:Jane Doe", u"TEL:+15550100",
                                          u"EMAIL:x", u"NOTE:Call me\\nlater"}));
  EXPECT_TRUE(cleaner.lastDidClean());
  EXPECT_EQ(cleaner.lastCleaningSummaries(), (TextList{kSeparators, split(u"TEL"), kDecoded}));
  EXPECT_EQ(VCardCleanerCounters::of(cleaner), Counters(6, 4, 2));
}

TEST(Cleaning, leavesTextThatIsNotOnlyCardsAlone) {
  const Text damaged = card({u"TEL:1EMAIL:x"}, u"\r\r\n");
  VCardCleaner cleaner;
  cleaner.setDebugLoggingEnabled(true);
  cleaner.clean(card({u"FN:x"}));
  for (const Text& text :
       {Text(), Text(u"\r\r\n"), Text(u"TEL:1EMAIL:x"), damaged + u"\r\r\n-- \r\r\nJane",
        Text(u"x\r\r\n").append(damaged), damaged.substr(0, damaged.size() - 1),
        Text(u"\u00AD").append(damaged), Text(u"END:VCARD\r\r\nBEGIN:VCARD"),
        Text(u"BEG\u0131N:VCARD\r\r\nEND:VCARD")}) {
    EXPECT_EQ(cleaner.clean(text), text);
    EXPECT_FALSE(cleaner.lastDidClean());
    EXPECT_EQ(cleaner.lastCleaningSummaries(), TextList());
    EXPECT_TRUE(cleaner.lastRepairs().empty());
    EXPECT_EQ(VCardCleanerCounters::of(cleaner), Counters(3, 3, 0));
  }
}

TEST(Cleaning, acceptsWhiteSpaceAndMarksAroundCards) {
  for (const TextView around : {u" ", u"\r\n\r\n", u"\uFEFF", u"\u200B\u00A0\t", u"\u2029"}) {
    VCardCleaner cleaner;
    cleaner.clean(Text(around).append(card({u"TEL:1EMAIL:x"})).append(u"\n").append(around));
    EXPECT_EQ(cleaner.lastCleaningSummaries(), TextList{split(u"TEL")});
  }
}

TEST(Cleaning, acceptsCardsInAnyCase) {
  VCardCleaner cleaner;
  EXPECT_EQ(cleaner.clean(u"begin:vcard\ntel:1email:x\nend:vcard\n"),
            u"begin:vcard\r\ntel:1\r\nemail:x\r\nend:vcard");
}

TEST(Cleaning, givesSoundTextBackAsItCame) {
  const Text folded = card({note(60), later(60), u" c"}) + u"\r\n\r\n";
  expectUntouched({folded, card({u"FN:x", u""}, u"\n"), card({u"FN:x"}, u"\r") + u"\r",
                   card({note(200)}, u"\n"), card({}), card({u"URL:http://example.com:80/"}),
                   card({u"\u0301", u":", u";:"}),
                   card({u"NOTE;ENCODING=QUOTED-PRINTABLE:a=", u" b"}),
                   card({u"a\r\rb", u"c\r\r\rd"}, u"\r")});
}

TEST(Cleaning, repairsSeparatorsAndNothingElse) {
  for (const TextView separator : {u"\r\r\n", u"\r\r\r\n", u"\r\r"}) {
    VCardCleaner cleaner;
    const TextList lines = {u"FN:x", u"NOTE:a", u" b", Text(100, u'c')};
    EXPECT_EQ(cleaner.clean(card(lines, separator) + Text(separator)), card(lines) + u"\r\n");
    EXPECT_EQ(cleaner.lastCleaningSummaries(), TextList{kSeparators});
    EXPECT_TRUE(cleaner.lastDidClean());
    ASSERT_EQ(cleaner.lastRepairs().size(), 1U);
    EXPECT_EQ(cleaner.lastRepairs().front(),
              (CleaningRepair{CleaningRepairKind::separators, {}, {}, {}}));
  }
}

TEST(Cleaning, writesCrLfOnceItRepairs) {
  VCardCleaner cleaner;
  EXPECT_EQ(cleaner.clean(card({u"TEL:1EMAIL:x", u"", note(100)}, u"\n") + u"\n"),
            card({u"TEL:1", u"EMAIL:x", u"", note(70), later(30)}));
}

TEST(Cleaning, repairsMembers) {
  expectRows(
      {{{kMember + u"a&#13;&#10;b"}, {kMember + u"a", kMember + u"b"}, {kMembers}},
       {{kMember + u"a&#10;NOTE:b&#13;c"}, {kMember + u"a", u"NOTE:b", kMember + u"c"}, {kMembers}},
       {{kMember + u"&#10;"}, {}, {kMembers}},
       {{kMember + u" a"}, {kMember + u"a"}, {kMembers}},
       {{kMember + u"a"}, {kMember + u"a"}, {}},
       {{kMember + u"aTEL:1,TEL:2"},
        {kMember + u"aTEL:1,", u"TEL:2"},
        {split(u"X-ADDRESSBOOKSERVER-MEMBER")}}});
}

TEST(Cleaning, extractsPropertiesGluedToNotes) {
  expectRows({{{u"NOTE:abcX-ABLABEL:x"}, {u"NOTE:abc", u"X-ABLABEL:x"}, {kExtracted}},
              {{u"item1.note;a=b:a&#13;b&#10;item2.X-ABLABEL:x"},
               {u"item1.note;a=b:a\\nb", u"item2.X-ABLABEL:x"},
               {kExtracted}},
              {{u"NOTE:aVND-5-SENSITIVE-CONTENT-CONFIG:x"},
               {u"NOTE:a", u"VND-5-SENSITIVE-CONTENT-CONFIG:x"},
               {kExtracted}},
              {{u"NOTE:a&#10;X-ABLABEL:x"}, {u"NOTE:a", u"X-ABLABEL:x"}, {kExtracted}},
              {{u"NOTE:&#10;X-ABLABEL:x"}, {u"NOTE:", u"X-ABLABEL:x"}, {kExtracted}},
              {{u"NOTE:a.\u0301X-ABLABEL:x"}, {u"NOTE:a.\u0301", u"X-ABLABEL:x"}, {kExtracted}}});
}

TEST(Cleaning, leavesNamesInNotesAlone) {
  for (const TextView value :
       {u"a X-ABLABEL:x", u"a.X-ABLABEL:x", u"a\\X-ABLABEL:x", u"a\u00A0X-ABLABEL:x",
        u"X-ABLABEL:x", u"aX-FOO:x", u"aX-ABLABEL", u"aTEL:1", u"call TEL:1 EMAIL:x",
        u"aX-ABLABEL:x TEL:1", u"a \u0301X-ABLABEL:x"}) {
    expectUntouched({card({Text(u"NOTE:").append(value)})});
  }
}

TEST(Cleaning, writesEntitiesInNotesAsEscapes) {
  expectRows({{{u"NOTE:Call me&#13;&#10;later"}, {u"NOTE:Call me\\nlater"}, {kDecoded}},
              {{u"NOTE;A=\"&#13;\":&#10;&#13;"}, {u"NOTE;A=\"&#13;\":\\n\\n"}, {kDecoded}},
              {{u"NOTE;A=&#13;:x"}, {u"NOTE;A=&#13;:x"}, {}},
              {{u"NOTE:&#xA;&#1"}, {u"NOTE:&#xA;&#1"}, {}},
              {{u"NOTE&#13;"}, {u"NOTE&#13;"}, {}},
              {{u"TEL:1&#13;2"}, {u"TEL:1&#13;2"}, {}}});
}

TEST(Cleaning, trimsFragments) {
  expectRows(
      {{{u"ADR:;;Main StreetX-ABLABEL"}, {u"ADR:;;Main Street"}, {trimmed(u"ADR")}},
       {{u"item1.adr;a=\"b:c\":xX-ABLABEL;d"}, {u"item1.adr;a=\"b:c\":x"}, {trimmed(u"ADR")}},
       {{u":aX-ABLABEL"}, {u":a"}, {trimmed(u"")}},
       {{u"NOTE:aX-ABLABEL"}, {u"NOTE:aX-ABLABEL"}, {}},
       {{u"X-FOO:aX-ABLABEL"}, {u"X-FOO:aX-ABLABEL"}, {}},
       {{u"VND-FOO:aX-ABLABEL"}, {u"VND-FOO:aX-ABLABEL"}, {}},
       {{u"aX-ABLABEL"}, {u"aX-ABLABEL"}, {}},
       // What looks merged is not looked at again when it stays whole.
       {{u"TEL:1 EMAIL:aX-ABLABEL"}, {u"TEL:1 EMAIL:aX-ABLABEL"}, {}}});
}

TEST(Cleaning, tellsOfEachLineInOrder) {
  expectRows({{{u"TEL:1EMAIL:a", u"NOTE:a&#13;b", u"a.tel:2EMAIL:b", u"TITLE:3TEL:c"},
               {u"TEL:1", u"EMAIL:a", u"NOTE:a\\nb", u"a.tel:2", u"EMAIL:b", u"TITLE:3", u"TEL:c"},
               {split(u"TEL"), kDecoded, split(u"TEL"), split(u"TITLE")}}});
}

TEST(Cleaning, takesColonsWithMarksForTheBytesTheyAre) {
  // They count for the first look at a line, which is cut behind the only colon that is one.
  expectRows(
      {{{u"TEL:\u03011EMAIL:x"}, {u"TEL:\u03011", u"EMAIL:x"}, {split(u"TEL:\u03011EMAIL")}}});
}

TEST(Cleaning, removesDuplicatesLast) {
  expectRows(
      {{{u"X-CREATED:1", u"FN:x", u"X-CREATED:2"}, {u"FN:x", u"X-CREATED:2"}, {kDuplicates}},
       // Of the lines that a repair made too.
       {{u"TEL:1X-CREATED:1", u"X-CREATED:2"},
        {u"TEL:1", u"X-CREATED:2"},
        {split(u"TEL"), kDuplicates}},
       {{kMember + u"a&#10;b&#10;a"}, {kMember + u"a", kMember + u"b"}, {kMembers, kDuplicates}}});
}

TEST(Cleaning, joinsSoftBreaks) {
  const Text qp = u"NOTE;ENCODING=QUOTED-PRINTABLE:";
  expectRows({{{qp + u"a=", u"b", u"TEL:1"}, {qp + u"ab", u"TEL:1"}, {kGeneral}},
              {{qp + u"a=", u"b&#13;"}, {qp + u"ab\\n"}, {kDecoded}}});
  VCardCleaner cleaner;
  EXPECT_EQ(cleaner.clean(card({qp + u"a=", u"b"}, u"\r\r\n")), card({qp + u"ab"}));
  EXPECT_EQ(cleaner.lastCleaningSummaries(), TextList{kSeparators});
}

TEST(Cleaning, foldsNothingBesideQuotedPrintable) {
  const Text longNote = note(100);
  expectRows({{{u"TEL:1EMAIL:x", longNote, u"FN;encoding=quoted-printable:x"},
               {u"TEL:1", u"EMAIL:x", longNote, u"FN;encoding=quoted-printable:x"},
               {split(u"TEL")}},
              {{u"TEL:1EMAIL:x", longNote, u"FN:ENCODING=QUOTED-PRINTABLE:"},
               {u"TEL:1", u"EMAIL:x", note(70), later(30), u"FN:ENCODING=QUOTED-PRINTABLE:"},
               {split(u"TEL")}}});
}

TEST(Cleaning, countsLinesAcrossRuns) {
  const Text damaged = card({u"TEL:1EMAIL:x", u"", kMember + u"&#10;", u"NOTE:a"});
  VCardCleaner cleaner;
  EXPECT_EQ(VCardCleanerCounters::of(cleaner), Counters(0, 0, 0));
  cleaner.clean(damaged);
  cleaner.clean(damaged);
  EXPECT_EQ(VCardCleanerCounters::of(cleaner), Counters(12, 8, 4));
  cleaner.clean(u"no card");
  EXPECT_EQ(VCardCleanerCounters::of(cleaner), Counters(12, 8, 4));
  cleaner.setDebugLoggingEnabled(true);
  cleaner.clean(u"no card");
  EXPECT_EQ(VCardCleanerCounters::of(cleaner), Counters(12, 8, 4));
  cleaner.clean(damaged);
  EXPECT_EQ(VCardCleanerCounters::of(cleaner), Counters(6, 4, 2));
  cleaner.setDebugLoggingEnabled(false);
  cleaner.clean(card({}));
  EXPECT_EQ(VCardCleanerCounters::of(cleaner), Counters(8, 6, 2));
}

TEST(Cleaning, forgetsTheRunBefore) {
  VCardCleaner cleaner;
  cleaner.clean(card({u"TEL:1EMAIL:x"}));
  cleaner.clean(card({u"TEL:1"}));
  EXPECT_FALSE(cleaner.lastDidClean());
  EXPECT_EQ(cleaner.lastCleaningSummaries(), TextList());
  EXPECT_TRUE(cleaner.lastRepairs().empty());
}

TEST(Cleaning, takesTextFromItsOwnRepairs) {
  VCardCleaner cleaner;
  cleaner.clean(card({u"TITLE:one that is kept in storage of its own 1TEL:1"}));
  ASSERT_FALSE(cleaner.lastRepairs().empty());
  const Text line = cleaner.lastRepairs().front().originalLine;
  EXPECT_EQ(cleaner.clean(cleaner.lastRepairs().front().originalLine), line);
}

TEST(Cleaning, keepsWhatBecameOfEachLine) {
  const Text qp = u"NOTE;ENCODING=QUOTED-PRINTABLE:";
  const Text text =
      card({u"X-CREATED:1", u"TEL:1EM", u" AIL:x", qp + u"a=", u"b", u"X-CREATED:2"}, u"\r\r\n");
  VCardCleaner cleaner;
  cleaner.clean(text);
  using Kind = CleaningRepairKind;
  const std::vector<CleaningRepair> expected = {
      {Kind::separators, {}, {}, {}},
      {Kind::duplicate, {text.find(u"X-CREATED"), 1}, u"X-CREATED:1", {}},
      {Kind::mergedProperties, {text.find(u"TEL"), 1}, u"TEL:1EMAIL:x", {u"TEL:1", u"EMAIL:x"}},
      {Kind::softBreak, {text.find(u"NOTE"), 1}, qp + u"a=\r\nb", {qp + u"ab"}}};
  ASSERT_EQ(cleaner.lastRepairs().size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const CleaningRepair& repair = cleaner.lastRepairs()[i];
    EXPECT_EQ(repair.kind, expected[i].kind) << i;
    EXPECT_EQ(repair.place.offset, expected[i].place.offset) << i;
    EXPECT_EQ(repair.originalLine, expected[i].originalLine) << i;
    EXPECT_EQ(repair.replacement, expected[i].replacement) << i;
  }
}

TEST(Cleaning, takesUtf8AndTheNameOfTheReader) {
  VCardCleaner cleaner;
  EXPECT_EQ(cleaner.clean(std::string_view("BEGIN:VCARD\nFN:J\xC3\xA4ne1TEL:1\nEND:VCARD")),
            "BEGIN:VCARD\r\nFN:J\xC3\xA4ne1\r\nTEL:1\r\nEND:VCARD");
  EXPECT_EQ(cleaner.cleanWithVCardString(card({u"TEL:1EMAIL:x"})), card({u"TEL:1", u"EMAIL:x"}));
  EXPECT_EQ(cleaner.lastCleaningSummaries(), TextList{split(u"TEL")});
}

TEST(Cleaning, needsOneRunForSoundBooksWithDoubledCrs) {
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    const std::string book = addressBook({.cards = 20, .seed = seed});
    VCardCleaner cleaner;
    ASSERT_EQ(cleaner.clean(std::string_view(book)), book) << "seed " << seed;
    ASSERT_FALSE(cleaner.lastDidClean()) << "seed " << seed;
    std::string damaged;
    for (const char byte : book) {
      damaged.append(byte == '\n' && damaged.ends_with('\r') ? "\r\n" : std::string(1, byte));
    }
    const std::string once = cleaner.clean(std::string_view(damaged));
    EXPECT_EQ(once, book) << "seed " << seed;
    EXPECT_TRUE(cleaner.lastDidClean());
    EXPECT_EQ(cleaner.clean(std::string_view(once)), once) << "seed " << seed;
  }
}

} // namespace
} // namespace cardwright
