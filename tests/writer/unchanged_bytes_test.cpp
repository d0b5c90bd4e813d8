#include "base/ascii.h"
#include "base/utf8_encoder.h"
#include "cardwright/utf8.h"
#include "support/each_lanes.h"
#include "support/random_source.h"
#include "support/seed.h"
#include "support/text_printer.h"
#include "values/valid_xml.h"
#include "writer/unchanged/encoding.h"
#include "writer/unchanged/quoted_printable.h"
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

TEST(SimpleEncoding, takesWhatHasNothingToEscape) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    for (const std::size_t size : {1U, 31U, 33U, 64U}) {
      std::vector<char16_t> units(size, u'a'); // exactly so many
      units[unit % size] = static_cast<char16_t>(unit);
      const TextView text(units.data(), units.size());
      const std::size_t room = roomForUtf8(size);
      const auto memory = std::make_unique<char[]>(room); // NOLINT: likewise
      Bytes output(memory.get(), room);
      const bool isSimple = encodeSimple(output, text);
      const bool mayBe = isAscii(text[unit % size]) && !isSign(static_cast<unsigned char>(unit));
      ASSERT_EQ(isSimple, mayBe && usesWideLanes) << unit << ' ' << size;
      ASSERT_EQ(output.view(), isSimple ? utf8FromText(text) : std::string());
    }
  }
  std::array<char, roomForUtf8(65)> room{};
  Bytes output(room.data(), room.size());
  EXPECT_FALSE(encodeSimple(output, Text(65, u'a')));
  EXPECT_EQ(encodeSimple(output, TextView()), usesWideLanes);
  EXPECT_EQ(output.size(), 0U);
}

/// What is appended for a value in quoted-printable; absent where only decoding can tell.
std::optional<std::string> decoded(TextView value) {
  const std::vector<char16_t> units(value.begin(), value.end()); // exactly so many
  const std::size_t room = roomForUtf8(value.size());
  const auto memory = std::make_unique<char[]>(room); // NOLINT: likewise
  Bytes output(memory.get(), room);
  const bool isPlain = appendWithoutQuotedPrintable(output, {units.data(), units.size()});
  return isPlain ? std::optional(std::string(output.view())) : std::nullopt;
}

Text quotedPrintable(std::string_view bytes) {
  Text text;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    text += {u'=', u"0123456789ABCDEF"[value >> 4U], u"0123456789ABCDEF"[value & 0xFU]};
  }
  return text;
}

/// Expects the same with wide lanes as without, where there are such.
void expectDecodedAlike(TextView value) {
  usesWideLanes = false;
  const std::optional<std::string> expected = decoded(value);
  usesWideLanes = true;
  ASSERT_EQ(decoded(value), expected) << testing::PrintToString(Text(value));
}

class QuotedPrintableLanes : public testing::Test {
 protected:
  void SetUp() override {
    if (!usesWideLanes) {
      GTEST_SKIP() << "this processor has no wide lanes";
    }
  }
};

TEST_F(QuotedPrintableLanes, knowEveryCharacterWhereverItStands) {
  for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
    std::array<char, 4> bytes{}; // Halves of pairs take three.
    const char* const end = putCodePoint(bytes.data(), codePoint);
    const Text code = quotedPrintable({bytes.data(), end});
    expectDecodedAlike(Text(codePoint % 64, u'a') + code + u"=C3=A9 b");
    ASSERT_FALSE(HasFatalFailure());
  }
}

TEST_F(QuotedPrintableLanes, knowEveryPairOfBytes) {
  for (unsigned first = 0; first <= 0xFF; ++first) {
    for (unsigned second = 0; second <= 0xFF; ++second) {
      const std::array<char, 2> bytes = {static_cast<char>(first), static_cast<char>(second)};
      const Text code = quotedPrintable({bytes.data(), bytes.size()});
      for (const std::size_t before : {0U, 53U, 56U, 59U}) {
        expectDecodedAlike(Text(before, u'a') + code);
        expectDecodedAlike(Text(before, u'a') + code + u"=80=80");
        expectDecodedAlike(Text(before, u'a') + code + u"a");
      }
      ASSERT_FALSE(HasFatalFailure());
    }
  }
}

TEST_F(QuotedPrintableLanes, knowEveryUnitInAndBesideACode) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    for (const TextView around : {u"=C3=A9?b", u"=?9=A9", u"=C?=A9", u"=C3?A9", u"a?"}) {
      Text value = Text(unit % 64, u'x') + Text(around);
      std::replace(value.begin(), value.end(), u'?', static_cast<char16_t>(unit));
      expectDecodedAlike(value);
    }
    ASSERT_FALSE(HasFatalFailure());
  }
}

TEST_F(QuotedPrintableLanes, takeMixtures) {
  constexpr std::array<TextView, 24> kPieces = {u"a",
                                                u"b c",
                                                u"0123456789ABCDEFGHIJ",
                                                u"=C3=A9",
                                                u"=D0=96=D0=B6",
                                                u"=E4=B8=AD",
                                                u"=EE=80=80",
                                                u"=F0=9F=98=80",
                                                u"=0D=0A",
                                                u"=2C",
                                                u"=3B",
                                                u"=5C",
                                                u"=E0=A0=80",
                                                u"=E2=82",
                                                u"=ED=95=98",
                                                u",",
                                                u";",
                                                u"\t",
                                                u"=EF=BC=8C",
                                                u"=3D41",
                                                u"=7F",
                                                u"=41",
                                                u"=20",
                                                u"=D8=A7=D9=84"};
  constexpr std::array<TextView, 10> kOdd = {u"=",         u"=4",  u"=c3=a9",    u"\u00E9",
                                             u"=ED=9F=BF", u"\\n", u"=EF=BF=BD", u"=80",
                                             u"=00",       u"==41"};
  RandomSource random(testSeed());
  for (int round = 0; round < 30'000; ++round) {
    Text value;
    for (std::size_t pieces = random.below(30); pieces > 0; --pieces) {
      value += random.oneIn(200) ? random.oneOf(kOdd) : random.oneOf(kPieces);
    }
    expectDecodedAlike(value);
    ASSERT_FALSE(HasFatalFailure());
  }
}

} // namespace
} // namespace cardwright
