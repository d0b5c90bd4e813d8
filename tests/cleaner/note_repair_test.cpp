#include "cardwright/vcard_cleaner.h"
#include "cleaner/note_repair.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <utility>

namespace cardwright {
namespace {

using Row = std::pair<TextView, TextView>;

TEST(NoteRepair, writesEntitiesOfLineBreaksAsEscapes) {
  for (const auto& [value, decoded] : {Row{u"a&#13;&#10;b", u"a\\nb"},
                                       {u"a&#13;b", u"a\\nb"},
                                       {u"a&#10;b", u"a\\nb"},
                                       {u"&#10;&#13;", u"\\n\\n"},
                                       {u"&#13;&#13;&#10;&#10;", u"\\n\\n\\n"},
                                       {u"&#&#10;13;", u"&#\\n13;"},
                                       {u"&#1&#13;&#10;0;", u"&#1\\n0;"},
                                       {u"&#13", u"&#13"},
                                       {u"&#xD;&#xA;&#013;", u"&#xD;&#xA;&#013;"},
                                       {u"&#1&#1", u"&#1&#1"},
                                       {u"", u""}}) {
    EXPECT_EQ(VCardCleaner::decodeNoteNumericEntitiesToEscapes(value), decoded);
  }
}

TEST(NoteRepair, leavesTheHeaderOfANoteAlone) {
  EXPECT_EQ(withEscapedLineBreaks(u"NOTE;A=\"&#13;:\":&#13;"), u"NOTE;A=\"&#13;:\":\\n");
  EXPECT_EQ(withEscapedLineBreaks(u"NOTE;A=&#13;:"), u"NOTE;A=&#13;:");
}

TEST(NoteRepair, trimsSeparatorsAtTheEnd) {
  for (const auto& [value, trimmed] : {Row{u"text&#10;&#13;&#10;", u"text"},
                                       {u"text&#10;x", u"text&#10;x"},
                                       {u"text&#13;", u"text"},
                                       {u"text &#13;", u"text "},
                                       {u"text&#13; ", u"text&#13; "},
                                       {u"&#13;&#10;&#10;&#13;&#13;", u""},
                                       {u"&#10", u"&#10"},
                                       {u"", u""}}) {
    EXPECT_EQ(VCardCleaner::trimTrailingNoteSeparators(value), trimmed);
  }
}

TEST(NoteRepair, mapsCaseOfAllLetters) {
  EXPECT_EQ(VCardCleaner::asciiUppercased(u"stra\u00DFe i\u0131"), u"STRASSE II");
  EXPECT_EQ(VCardCleaner::asciiLowercased(u"STRASSE \u00C4I\u0130"), u"strasse \u00E4ii\u0307");
  EXPECT_EQ(VCardCleaner::asciiUppercased(u""), u"");
  const Text surrogate(1, char16_t{0xDC00});
  EXPECT_EQ(VCardCleaner::asciiUppercased(surrogate), surrogate);
}

} // namespace
} // namespace cardwright
