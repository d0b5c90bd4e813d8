#include "support/text_printer.h"
#include "text/wrap.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright::tool {
namespace {

using Lines = std::vector<TextView>;

class LineWrapperTest : public testing::Test {
 protected:
  DisplayWidth m_width;
  LineWrapper m_wrapper{m_width};
};

TEST_F(LineWrapperTest, leavesLinesThatFit) {
  EXPECT_EQ(m_wrapper.wrap(u"", 10), (Lines{u""}));
  EXPECT_EQ(m_wrapper.wrap(u"exactly 10", 10), (Lines{u"exactly 10"}));
}

TEST_F(LineWrapperTest, breaksBetweenWords) {
  EXPECT_EQ(m_wrapper.wrap(u"keys of the boat house", 11), (Lines{u"keys of the", u"boat house"}));
  EXPECT_EQ(m_wrapper.wrap(u"one  two", 5), (Lines{u"one", u"two"}));
}

TEST_F(LineWrapperTest, keepsWhatIsLongerThanALineInOnePiece) {
  EXPECT_EQ(m_wrapper.wrap(u"see https://example.org/a-long/path?to=it now", 10),
            (Lines{u"see", u"https://example.org/a-long/path?to=it", u"now"}));
}

TEST_F(LineWrapperTest, breaksWideTextWithoutBlanks) {
  EXPECT_EQ(m_wrapper.wrap(u"每年春天寄一盒新茶。", 10), (Lines{u"每年春天寄", u"一盒新茶。"}));
}

TEST_F(LineWrapperTest, bearsTextThatIsNoUnicode) {
  const Text line = Text(5, char16_t{0xDC00}) + u" " + Text(5, char16_t{0xD800});
  EXPECT_EQ(m_wrapper.wrap(line, 5).size(), 2U);
}

TEST_F(LineWrapperTest, losesNothingButBlanksAtBreaks) {
  const Text line =
      u"Отвечает на письма  по вечерам 👨‍👩‍👧‍👦 "
      u"每年春天 "
      u"abc-def "
      u"๑๒๓ "
      u"ศิริพร";
  for (std::size_t columns = 1; columns < 70; ++columns) {
    Text together;
    for (const TextView piece : m_wrapper.wrap(line, columns)) {
      together += piece;
    }
    const auto withoutBlanks = [](Text text) {
      std::erase(text, u' ');
      return text;
    };
    EXPECT_EQ(withoutBlanks(together), withoutBlanks(line)) << columns;
  }
}

} // namespace
} // namespace cardwright::tool
