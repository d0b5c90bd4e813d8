#include "base/ascii.h"
#include "base/utf8_encoder.h"
#include "cardwright/utf8.h"
#include "support/each_lanes.h"
#include "support/random_source.h"
#include "support/seed.h"
#include "support/text_printer.h"
#include "values/valid_xml.h"
#include "writer/unchanged/encoding.h"
#include "writer/unchanged/signs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace cardwright {
namespace {

TEST(Signs, areFoundAsThePlainFormFindsThem) {
  withEachLanes([] {
    for (unsigned byte = 0; byte <= 0xFF; ++byte) {
      for (std::size_t size = 0; size <= kSignWindow; ++size) {
        // Whatever stands behind does not count.
        std::string bytes(size, 'a');
        if (size > 0) {
          bytes[byte % size] = static_cast<char>(byte);
        }
        const std::string memory = bytes + std::string(kSignsReadBeyond, ',');
        ASSERT_EQ(signsIn(memory.data(), size), signsInPlainly(bytes)) << byte << ' ' << size;
      }
    }
  });
}

TEST(Signs, arePlainlyThoseThatAreEscapedAndControls) {
  for (unsigned byte = 0; byte <= 0xFF; ++byte) {
    const bool isSign = byte < 0x20 || byte == ',' || byte == ';' || byte == '\\' || byte == 0x7F;
    const std::string bytes = {'a', static_cast<char>(byte)};
    ASSERT_EQ(signsInPlainly(bytes), isSign ? 2U : 0U) << byte;
  }
}

std::optional<std::string> encoded(TextView text, std::size_t behind, char16_t filling) {
  std::vector<char16_t> units(text.begin(), text.end());
  units.resize(text.size() + behind, filling);
  const std::size_t room = roomForUtf8(text.size());
  const auto memory = std::make_unique<char[]>(room); // NOLINT: exactly so many
  Bytes output(memory.get(), room);
  const bool isSound =
      encodeSound(output, {{units.data(), text.size()}, units.data() + units.size()});
  EXPECT_TRUE(isSound || output.size() == 0);
  return isSound ? std::optional(std::string(output.view())) : std::nullopt;
}

bool isPlainlySound(TextView text) {
  for (std::size_t at = 0; at < text.size(); at += unitLength(codePointAt(text, at))) {
    if (!isAscii(text[at]) && invalidLengthAt(text, at) != 0) {
      return false;
    }
  }
  return true;
}

void expectEncoded(TextView text) {
  for (const std::size_t behind : {0U, 1U, 7U, 8U, 15U, 16U, 40U}) {
    for (const char16_t filling : {u'a', u'\u00E9', u'\xD83D', u'\xDE00'}) {
      const std::optional<std::string> bytes = encoded(text, behind, filling);
      ASSERT_EQ(bytes.has_value(), isPlainlySound(text)) << testing::PrintToString(Text(text));
      if (bytes) {
        ASSERT_EQ(*bytes, utf8FromText(text)) << testing::PrintToString(Text(text));
      }
    }
  }
}

TEST(SoundEncoding, looksAtEveryUnitWhereverItStands) {
  withEachLanes([] {
    for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
      Text text(21, unit % 2 == 0 ? u'a' : u'\u0416');
      text[unit % text.size()] = static_cast<char16_t>(unit);
      const std::optional<std::string> bytes = encoded(text, unit % 32, u'a');
      ASSERT_EQ(bytes.has_value(), isPlainlySound(text)) << unit;
      if (bytes) {
        ASSERT_EQ(*bytes, utf8FromText(text)) << unit;
      }
    }
  });
}

TEST(SoundEncoding, takesTextsOfAnyLength) {
  withEachLanes([] {
    for (std::size_t size = 0; size < 90; ++size) {
      for (const TextView filling : {u"a", u"\u00E9", u"\u4E2D", u"aaa\u00E9", u"\u0416\u4E2D"}) {
        Text text;
        while (text.size() < size) {
          text += filling;
        }
        expectEncoded(text.substr(0, size));
      }
    }
  });
}

TEST(SoundEncoding, takesMixtures) {
  withEachLanes([] {
    constexpr std::array<TextView, 16> kPieces = {
        u"a",         u"b c",          u"0123456789ABCDEFGHIJ",
        u"\u00E9",    u"\u0416\u0436", u"\u4E2D",
        u"\uE000",    u"\uFFFC",       u"\uFF0C",
        u"\u0800",    u"\U0001F600",   u"\U0010FFFE",
        u"\n",        u"\t",           u"\uD7FE",
        u"\U00020000"};
    constexpr std::array<TextView, 6> kUnsound = {u"\xD800", u"\xDC00", u"\uD7FF",
                                                  u"\uFFFD", u"\uFFFF", u"\U0010FFFF"};
    RandomSource random(testSeed());
    for (int round = 0; round < 10'000; ++round) {
      Text text;
      for (std::size_t pieces = random.below(30); pieces > 0; --pieces) {
        text += random.oneIn(200) ? random.oneOf(kUnsound) : random.oneOf(kPieces);
      }
      expectEncoded(text);
      ASSERT_FALSE(HasFatalFailure());
    }
  });
}

} // namespace
} // namespace cardwright
