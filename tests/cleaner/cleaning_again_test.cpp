#include "cardwright/vcard_cleaner.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

namespace cardwright {
namespace {

Text card(const TextList& lines) {
  Text text = u"BEGIN:VCARD\r\n";
  for (const Text& line : lines) {
    text.append(line).append(u"\r\n");
  }
  return text.append(u"END:VCARD\r\n");
}

/// Why a text that was cleaned may be repaired again.
struct Rule {
  const char* name;
  TextList lines;
  TextList second; ///< summaries of the second cleaning
};

const Rule kRules[] = {
    // Whether a name is cut off depends on the property that it was glued to.
    {"a piece begins with FN, behind which a structured name is cut off",
     {u"N:2FN:JN:;;;;"},
     {u"Split merged properties starting at FN"}},
    // A line takes one repair in each run: cutting comes before trimming.
    {"a piece ends in a torn header",
     {u"N:7EMAIL:xX-ABLABEL"},
     {u"Trimmed dangling extended fragment after EMAIL"}},
    // Of the properties glued to a note, the last one goes.
    {"a note holds two properties",
     {u"NOTE:cX-ABLABEL:X-ABLABEL:a"},
     {u"NOTE: extracted trailing allowlisted property"}},
    // Members are separated first; what a member holds is looked at when it stands alone.
    {"a member holds a property",
     {u"X-ADDRESSBOOKSERVER-MEMBER:&#10;.TEL:"},
     {u"Split merged properties starting at X-ADDRESSBOOKSERVER-MEMBER"}},
    // What stands behind an empty line and two blanks is a line again when it is written.
    {"a continuation follows an empty line",
     {u"X-ADDRESSBOOKSERVER-MEMBER:\n\n  a ", u"X-ADDRESSBOOKSERVER-MEMBER:"},
     {u"Split numeric entities in X-ADDRESSBOOKSERVER-MEMBER"}},
    // Repeats are looked for among the lines that one run makes.
    {"a repeat is still glued to a note",
     {u"NOTE:eX-CREATED:X-CREATED:1"},
     {u"NOTE: extracted trailing allowlisted property", u"Removed duplicate metadata properties"}},
    // A value cut off from its line becomes a line whose soft break is seen.
    {"a piece is quoted-printable and holds a lone CR",
     {u"X-N:1N;ENCODING=QUOTED-PRINTABLE:=\r:"},
     {u"Performed vCard normalization"}},
};

TEST(CleaningAgain, findsMoreByTheseRules) {
  for (const Rule& rule : kRules) {
    SCOPED_TRACE(rule.name);
    VCardCleaner cleaner;
    const Text once = cleaner.clean(card(rule.lines));
    EXPECT_TRUE(cleaner.lastDidClean());
    static_cast<void>(cleaner.clean(once));
    EXPECT_EQ(cleaner.lastCleaningSummaries(), rule.second) << testing::PrintToString(once);
  }
}

} // namespace
} // namespace cardwright
