#include "base/ascii_lanes.h"
#include "base/utf8_decoder.h"
#include "cardwright/utf8.h"
#include "support/bytes.h"
#include "support/combinations.h"
#include "support/each_lanes.h"
#include "support/seed.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>
#include <unicode/ustring.h>

#include <random>

namespace cardwright {
namespace {

Text decodedByIcu(std::string_view utf8) {
  Text text(utf8.size(), u'\0');
  int32_t length = 0;
  UErrorCode status = U_ZERO_ERROR;
  u_strFromUTF8WithSub(text.data(), static_cast<int32_t>(text.size()), &length, utf8.data(),
                       static_cast<int32_t>(utf8.size()), 0xFFFD, nullptr, &status);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

std::string encodedByIcu(TextView text) {
  std::string utf8(text.size() * 3, '\0');
  int32_t length = 0;
  UErrorCode status = U_ZERO_ERROR;
  u_strToUTF8WithSub(utf8.data(), static_cast<int32_t>(utf8.size()), &length, text.data(),
                     static_cast<int32_t>(text.size()), 0xFFFD, nullptr, &status);
  utf8.resize(static_cast<std::size_t>(length));
  return utf8;
}

void appendCodePoint(Text& text, UChar32 codePoint) {
  if (!U_IS_BMP(codePoint)) {
    text.push_back(U16_LEAD(codePoint));
    text.push_back(U16_TRAIL(codePoint));
  } else {
    text.push_back(static_cast<char16_t>(codePoint));
  }
}

bool hasReplacement(TextView text) {
  return text.find(char16_t{0xFFFD}) != TextView::npos;
}

void expectTheSameAsIcu(const std::string& utf8) {
  const Text expected = decodedByIcu(utf8);
  ASSERT_EQ(textFromUtf8(utf8), expected) << testing::PrintToString(utf8);
  if (utf8.find("\xEF\xBF\xBD") == std::string::npos) {
    const std::optional<Text> sound = textFromSoundUtf8(utf8);
    ASSERT_EQ(sound.has_value(), !hasReplacement(expected)) << testing::PrintToString(utf8);
    ASSERT_EQ(sound.value_or(expected), expected);
  }
}

TEST(TextFromUtf8, replacesEveryMaximalPartOfABrokenSequence) {
  EXPECT_EQ(textFromUtf8(bytesFromHex("41e28241")), u"A\uFFFDA");
  EXPECT_EQ(textFromUtf8(bytesFromHex("eda080")), u"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(textFromUtf8(bytesFromHex("f09f98")), u"\uFFFD");
  EXPECT_EQ(textFromUtf8(bytesFromHex("c0af")), u"\uFFFD\uFFFD");
  EXPECT_EQ(textFromUtf8(bytesFromHex("efbbbf41")), u"\uFEFFA");
  EXPECT_EQ(textFromUtf8(std::string_view("a\0b", 3)), Text(u"a\0b", 3));
}

TEST(TextFromUtf8, agreesWithIcuOnAllShortSequences) {
  withEachLanes([] {
    const std::string alphabet = bytesFromHex("41808f909fa0bfc1c2dfe0e1edeff0f1f4f5");
    forEachCombination(alphabet, 4, expectTheSameAsIcu);
  });
}

TEST(TextFromUtf8, agreesWithIcuOnEverySequenceOfThreeBytes) {
  for (unsigned head = 0; head < 0x10000; ++head) {
    const std::string twoBytes = {static_cast<char>(head >> 8U), static_cast<char>(head)};
    std::string utf8;
    for (unsigned last = 0; last < 0x100; ++last) {
      utf8 += twoBytes + static_cast<char>(last) + 'x';
    }
    // At the end of the text nothing follows the two.
    utf8 += twoBytes;
    const Text expected = decodedByIcu(utf8);
    withEachLanes([&] { ASSERT_EQ(textFromUtf8(utf8), expected) << head; });
  }
}

TEST(TextFromUtf8, readsEveryCodePointBack) {
  withEachLanes([] {
    for (UChar32 c = 0; c <= 0x10FFFF; ++c) {
      if (U_IS_SURROGATE(c)) {
        continue;
      }
      Text text;
      appendCodePoint(text, c);
      const std::string utf8 = encodedByIcu(text);
      ASSERT_EQ(utf8FromText(text), utf8) << c;
      ASSERT_EQ(textFromUtf8(utf8), text) << c;
    }
  });
}

TEST(TextFromUtf8, agreesWithIcuOnRandomMixturesOfAsciiAndTheRest) {
  withEachLanes([] {
    std::mt19937_64 random(testSeed());
    const std::string pieces[] = {
        std::string(1, 'a'), std::string(15, 'b'), std::string(16, 'c'), std::string(33, 'd'),
        "\xC3\xA9",          "\xE2\x82\xAC",       "\xF0\x9F\x98\x80",   "\x80",
        "\xF0\x9F",          "\xED\xA0\x80"};
    for (int round = 0; round < 5000; ++round) {
      std::string utf8;
      for (std::size_t i = random() % 300; i > 0; --i) {
        utf8 += pieces[random() % std::size(pieces)];
      }
      expectTheSameAsIcu(utf8);
    }
  });
}

/// Decodes piece by piece, until nothing more is sound.
template <typename Decode>
std::pair<Text, std::size_t> decodedInPieces(std::string_view utf8, std::size_t room,
                                             Decode decode) {
  Text text;
  std::size_t at = 0;
  for (;;) {
    Text piece(room + kAsciiBlock, u'\0');
    const DecodedRun run = decode(utf8.substr(at), piece.data(), room);
    text.append(piece, 0, run.units);
    at += run.bytes;
    if (run.bytes == 0) {
      return {text, at};
    }
  }
}

TEST(DecodeSoundRun, doesTheSameAsWithoutVectors) {
  withEachLanes([] {
    std::mt19937_64 random(testSeed());
    const std::string pieces[] = {"a",
                                  "bcdefghijklmnopqrstuv",
                                  "\xC3\xA9",
                                  "\xDF\xBF",
                                  "\xE0\xA4\xB9",
                                  "\xED\x9F\xBF",
                                  "\xE2\x82\xAC",
                                  "\xEF\xBF\xBF",
                                  "\xF0\x9F\x98\x80"};
    for (int round = 0; round < 20000; ++round) {
      std::string utf8;
      for (std::size_t i = random() % 60; i > 0; --i) {
        utf8 += pieces[random() % std::size(pieces)];
      }
      for (std::size_t i = random() % 3; i > 0 && !utf8.empty(); --i) {
        utf8[random() % utf8.size()] = static_cast<char>(random());
      }
      const std::size_t room = kAsciiBlock + 1 + random() % 80;
      ASSERT_EQ(decodedInPieces(utf8, room, decodeSoundRun),
                decodedInPieces(utf8, room, decodeSoundRunPlainly))
          << testing::PrintToString(utf8);
    }
  });
}

TEST(DecodeSoundRun, seesEveryWrongByteWhereverItStands) {
  withEachLanes([] {
    const std::string letters = "a\xC3\xA9z\xE4\xB8\xAD\xF0\x9F\x98\x80";
    std::string utf8;
    while (utf8.size() < 112) {
      utf8 += letters;
    }
    for (std::size_t at = 0; at < 80; ++at) {
      for (unsigned byte = 0; byte < 0x100; ++byte) {
        std::string broken = utf8;
        broken[at] = static_cast<char>(byte);
        ASSERT_EQ(decodedInPieces(broken, 200, decodeSoundRun),
                  decodedInPieces(broken, 200, decodeSoundRunPlainly))
            << at << ' ' << byte;
      }
    }
  });
}

TEST(Utf8FromText, agreesWithIcuWhereverALongerCharacterStands) {
  withEachLanes([] {
    constexpr char16_t kLonger[] = {0x0800, 0x20AC, 0xD83D, 0xDE00, 0xFFFF};
    for (std::size_t size = 0; size < 40; ++size) {
      for (std::size_t at = 0; at <= size; ++at) {
        for (const TextView filling : {u"a", u"é", u"aé", u"ééa", u"aaaaaaaaaß"}) {
          Text text;
          while (text.size() < size) {
            text.append(filling);
          }
          text.insert(at, 1, kLonger[at % std::size(kLonger)]);
          ASSERT_EQ(utf8FromText(text), encodedByIcu(text)) << size << ' ' << at;
        }
      }
    }
  });
}

TEST(Utf8FromText, agreesWithIcuAndReplacesLoneSurrogates) {
  withEachLanes([] {
    std::mt19937_64 random(testSeed());
    const Text alphabet = Text(u"aaaaaaaaaaaaé€\uD7FF\uE000\uFFFD") + char16_t{0xD83D} +
                          char16_t{0xDE00} + char16_t{0xDBFF} + char16_t{0xDFFF};
    for (int round = 0; round < 5000; ++round) {
      const Text text = Text(random() % 40, u'x') + randomString(alphabet, random() % 200, random);
      ASSERT_EQ(utf8FromText(text), encodedByIcu(text));
    }
    EXPECT_EQ(utf8FromText(Text(1, char16_t{0xD800})), "\xEF\xBF\xBD");
  });
}

TEST(AppendUtf8, appendsAcrossTheEndsOfItsBlocks) {
  withEachLanes([] {
    for (std::size_t length = 4070; length < 4110; ++length) {
      const Text text = Text(length, u'a') + u"é€\U0001F600" + Text(length, u'b');
      std::string utf8 = "before";
      appendUtf8(utf8, text);
      ASSERT_EQ(utf8, "before" + encodedByIcu(text));
      ASSERT_EQ(textFromUtf8(encodedByIcu(text)), text);
    }
  });
}

/// What widenAscii does, without its blocks.
std::size_t widenOneByOne(const std::string& bytes, char16_t* output) {
  std::size_t done = 0;
  while (done < bytes.size() && static_cast<unsigned char>(bytes[done]) < 0x80) {
    output[done] = static_cast<unsigned char>(bytes[done]);
    ++done;
  }
  return done;
}

TEST(AsciiLanes, giveTheSameAsOneUnitAtATime) {
  std::mt19937_64 random(testSeed());
  for (std::size_t length = 0; length < 70; ++length) {
    for (std::size_t broken = 0; broken <= length; ++broken) {
      std::string bytes;
      for (std::size_t i = 0; i < length; ++i) {
        bytes.push_back(static_cast<char>(random() % 0x80));
      }
      Text units(bytes.begin(), bytes.end());
      if (broken < length) {
        bytes[broken] = static_cast<char>(0x80 + random() % 0x80);
        units[broken] = static_cast<char16_t>(0x80 + random() % 0xFF80);
      }
      Text widened(length, u'?');
      Text expected(length, u'?');
      const std::size_t count = widenAscii(bytes.data(), length, widened.data());
      ASSERT_EQ(count, widenOneByOne(bytes, expected.data()));
      ASSERT_EQ(widened.substr(0, count), expected.substr(0, count));

      std::string narrowed(length, '?');
      ASSERT_EQ(narrowAscii(units.data(), length, narrowed.data()), broken);
      ASSERT_EQ(narrowed.substr(0, broken), bytes.substr(0, broken));
    }
  }
}

} // namespace
} // namespace cardwright
