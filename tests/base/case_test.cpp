#include "base/case.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright {
namespace {

TEST(UpperCased, mapsAsciiAndTheRestOfUnicodeInFull) {
  EXPECT_EQ(upperCased(u"tel-1"), u"TEL-1");
  EXPECT_EQ(upperCased(u"straße"), u"STRASSE");
  EXPECT_EQ(upperCased(u"ﬁx"), u"FIX");
  EXPECT_EQ(upperCased(u"iı"), u"II");
  EXPECT_EQ(upperCased(u""), u"");
}

TEST(LowerCased, usesNoLanguageOfItsOwn) {
  EXPECT_EQ(lowerCased(u"IÉ"), u"ié");
  EXPECT_EQ(lowerCased(u"ΑΣ"), u"ας");
}

TEST(UpperCasedName, viewsANameThatIsUpperCaseAlready) {
  const Text name = u"X-ABLABEL";
  const UpperCasedName upper(name);
  EXPECT_EQ(upper.view().data(), name.data());
  EXPECT_TRUE(upper.isOriginal());
}

TEST(UpperCasedName, mapsShortLongAndForeignNames) {
  EXPECT_EQ(UpperCasedName(u"tel").view(), u"TEL");
  EXPECT_EQ(UpperCasedName(Text(200, u'a')).view(), Text(200, u'A'));
  EXPECT_EQ(UpperCasedName(u"straße").view(), u"STRASSE");
}

TEST(EqualIgnoringCase, foldsInFull) {
  EXPECT_TRUE(equalIgnoringCase(u"begin:vcard", u"BEGIN:VCARD"));
  EXPECT_TRUE(equalIgnoringCase(u"Straße", u"STRASSE"));
  EXPECT_TRUE(equalIgnoringCase(u"\u212Ain\u017F", u"kins"));
  EXPECT_TRUE(equalIgnoringCase(u"", u""));
  EXPECT_FALSE(equalIgnoringCase(u"tel", u"te"));
  EXPECT_FALSE(equalIgnoringCase(u"strasse", u"straß"));
  EXPECT_FALSE(equalIgnoringCase(u"é", u"e"));
}

TEST(EqualIgnoringCase, comparesLoneSurrogatesAsThemselves) {
  const Text high(1, char16_t{0xD800});
  const Text low(1, char16_t{0xDC00});
  EXPECT_TRUE(equalIgnoringCase(high, high));
  EXPECT_FALSE(equalIgnoringCase(high, low));
}

TEST(FindIgnoringCase, findsFoldedTextAndTellsItsLength) {
  const auto found = findIgnoringCase(u"aX-ADDREßBooK", u"x-addressbook");
  ASSERT_TRUE(found);
  EXPECT_EQ(found->position, 1U);
  EXPECT_EQ(found->length, 12U);
  EXPECT_FALSE(findIgnoringCase(u"abc", u"bd"));
}

TEST(FindIgnoringCase, takesACharacterWholeOrNotAtAll) {
  EXPECT_FALSE(findIgnoringCase(u"ß", u"s"));
  EXPECT_FALSE(findIgnoringCase(u"aß", u"as"));
  EXPECT_TRUE(findIgnoringCase(u"aß", u"ass"));
}

} // namespace
} // namespace cardwright
