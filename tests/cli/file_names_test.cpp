#include "text/file_names.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright::tool {
namespace {

TEST(SafeFileName, keepsWhatPeopleRead) {
  EXPECT_EQ(safeFileName(u"Ada Lovelace"), "Ada Lovelace");
  EXPECT_EQ(safeFileName(u"Dr. Jürgen Weiß, Jr."), "Dr. Jürgen Weiß, Jr");
  EXPECT_EQ(safeFileName(u"高瀬 結衣"), "高瀬 結衣");
  EXPECT_EQ(safeFileName(u"Pixel 🦊"), "Pixel 🦊");
}

struct Row {
  TextView name;
  const char* safe;
};

TEST(SafeFileName, bearsHostileNames) {
  const Row kRows[] = {
      {u"", ""},
      {u".", ""},
      {u"..", ""},
      {u"/", ""},
      {u" . - ~ ", ""},
      {u"../../etc/passwd", "_.._etc_passwd"},
      {u"/etc/passwd", "_etc_passwd"},
      {u"C:\\autoexec", "C__autoexec"},
      {u".bashrc", "bashrc"},
      {u"-rf *", "rf _"},
      {u"a\nb\tc\u0000d", "a b c"},
      {u"\u001B[31mred\u007F", "[31mred"},
      {u"evil\u202Efcv.exe", "evilfcv.exe"},
      {u"a\u200B\u200D\uFEFFb", "ab"},
      {u"\u3164\u115F\u00AD", ""},
      {u"a\u2028b\u00A0c\u0085d", "a b c d"},
      {u"CON", "_CON"},
      {u"con.txt", "_con.txt"},
      {u"Lpt1", "_Lpt1"},
      {u"com\u00B9", "_com\u00B9"},
      {u"aux .b", "_aux .b"},
      {u"console", "console"},
      {u"name.", "name"},
      {u"name . . ", "name"},
      {u"?*|<>\":", ""},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(safeFileName(row.name), row.safe);
  }
  EXPECT_EQ(safeFileName(Text(u"a") + u'\0' + u"b"), "a b");
  EXPECT_EQ(safeFileName(Text(u"a") + char16_t(0xD800) + u"b"), "ab");
}

TEST(SafeFileName, countsBytesAndCutsNoCharacter) {
  EXPECT_EQ(safeFileName(Text(1000, u'a')), std::string(120, 'a'));
  std::string umlauts;
  for (int count = 0; count < 60; ++count) {
    umlauts += "ü";
  }
  EXPECT_EQ(safeFileName(Text(1000, u'ü')), umlauts);
  Text foxes;
  for (int count = 0; count < 100; ++count) {
    foxes += u"🦊";
  }
  EXPECT_EQ(safeFileName(u"a" + foxes).size(), 1U + 29 * 4);
  EXPECT_EQ(safeFileName(Text(119, u'a') + u" b"), std::string(119, 'a'));
}

TEST(FileNames, differEvenWhereCaseMakesNoDifference) {
  FileNames names;
  EXPECT_EQ(names.give("Ada", ".vcf"), "Ada.vcf");
  EXPECT_EQ(names.give("ada", ".vcf"), "ada 2.vcf");
  EXPECT_EQ(names.give("ADA 2", ".vcf"), "ADA 2 2.vcf");
  EXPECT_EQ(names.give("Ada", ".vcf"), "Ada 3.vcf");
  EXPECT_EQ(names.give("Zo\u00EB", ".vcf"), "Zo\u00EB.vcf");
  EXPECT_EQ(names.give("Zoe\u0308", ".vcf"), "Zoe\u0308 2.vcf");
  EXPECT_EQ(names.give("stra\u00DFe", ".vcf"), "stra\u00DFe.vcf");
  EXPECT_EQ(names.give("STRASSE", ".vcf"), "STRASSE 2.vcf");
}

TEST(FileNames, takeLinearTimeForEqualNames) {
  FileNames names;
  std::string last;
  for (int count = 0; count < 50'000; ++count) {
    last = names.give("Ada", "");
  }
  EXPECT_EQ(last, "Ada 50000");
}

} // namespace
} // namespace cardwright::tool
