#include "conformance/case_error.h"
#include "conformance/text_notation.h"

#include <gtest/gtest.h>

namespace cardwright::conformance {
namespace {

TEST(TextNotation, escapesEverythingButPrintableAscii) {
  EXPECT_EQ(notationFromText(u"a %~"), "a %u0025~");
  EXPECT_EQ(notationFromText(u"é\r\n\t\x7F"), "%u00E9%u000D%u000A%u0009%u007F");
  EXPECT_EQ(notationFromText(u"😀"), "%uD83D%uDE00");
  EXPECT_EQ(notationFromText(Text(1, u'\xDC00') + Text(1, u'\0')), "%uDC00%u0000");
}

TEST(TextNotation, isReadBack) {
  for (char32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const Text text = {u'a', static_cast<char16_t>(unit), u'1'};
    ASSERT_EQ(textFromNotation(notationFromText(text)), text) << static_cast<unsigned>(unit);
  }
}

TEST(TextNotation, rejectsWhatItDoesNotWrite) {
  for (const char* broken : {"%", "%u12", "%u12G4", "%1234", "%u-123", "\t", "\xC3\xA9"}) {
    EXPECT_THROW((void)textFromNotation(broken), CaseError) << broken;
  }
}

TEST(BytesNotation, isPairsOfHexadecimalDigits) {
  const std::string bytes("\x00\x7F\xFF", 3);
  EXPECT_EQ(hexFromBytes(bytes), "007fff");
  EXPECT_EQ(bytesFromHex("007FfF"), bytes);
  EXPECT_THROW((void)bytesFromHex("0"), CaseError);
  EXPECT_THROW((void)bytesFromHex("0g"), CaseError);
}

} // namespace
} // namespace cardwright::conformance
