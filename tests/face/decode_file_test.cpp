#include "cardwright/decode.h"
#include "cardwright/utf8.h"
#include "support/bytes.h"
#include "support/combinations.h"
#include "support/seed.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>

namespace cardwright {
namespace {

struct Decoding {
  std::optional<Text> text;
  DecodingReport report;
};

Decoding decode(std::string_view bytes, std::optional<std::string_view> encoding = std::nullopt) {
  Decoding decoding;
  decoding.text = decodeFile(bytes, encoding, &decoding.report);
  return decoding;
}

void expectDecoding(std::string_view bytes, TextView text, std::string_view encoding,
                    std::size_t droppedBytes = 0) {
  const Decoding decoding = decode(bytes);
  EXPECT_EQ(decoding.text, text);
  EXPECT_EQ(decoding.report.encoding, encoding);
  EXPECT_EQ(decoding.report.droppedBytes, droppedBytes);
}

/// Text as UTF-16 bytes.
std::string utf16(TextView text, bool isLittleEndian) {
  std::string bytes;
  for (const char16_t unit : text) {
    const char low = static_cast<char>(unit & 0xFFU);
    const char high = static_cast<char>(unit >> 8U);
    bytes.push_back(isLittleEndian ? low : high);
    bytes.push_back(isLittleEndian ? high : low);
  }
  return bytes;
}

/// Text of the first 256 characters as ISO-8859-1 bytes.
std::string latin1(TextView text) {
  return {text.begin(), text.end()};
}

const Text kCard = u"BEGIN:VCARD\r\nVERSION:3.0\r\nN:Müller;Zoë;;;\r\nNOTE:日本 \U0001F600\r\n"
                   u"END:VCARD\r\n";

TEST(DecodeFile, takesSoundUtf8ForWhatItIs) {
  expectDecoding("", u"", "UTF-8");
  expectDecoding("BEGIN:VCARD\r\n", u"BEGIN:VCARD\r\n", "UTF-8");
  expectDecoding(utf8FromText(kCard), kCard, "UTF-8");
  expectDecoding("é", u"é", "UTF-8");
  expectDecoding(std::string_view("a\0b", 3), Text(u"a\0b", 3), "UTF-8");
}

TEST(DecodeFile, isToldByAByteOrderMarkWhichIsNoText) {
  expectDecoding(std::string("\xEF\xBB\xBF") + utf8FromText(kCard), kCard, "UTF-8");
  expectDecoding(std::string("\xFF\xFE") + utf16(kCard, true), kCard, "UTF-16LE");
  expectDecoding(std::string("\xFE\xFF") + utf16(kCard, false), kCard, "UTF-16BE");
  expectDecoding(bytesFromHex("fffe000041000000e9000000"), u"Aé", "UTF-32LE");
  expectDecoding(bytesFromHex("0000feff00000041000000e9"), u"Aé", "UTF-32BE");
  expectDecoding("\xFF\xFE", u"", "UTF-16LE");
  expectDecoding("\xEF\xBB\xBF", u"", "UTF-8");
  // Only the first.
  expectDecoding("\xEF\xBB\xBF\xEF\xBB\xBF"
                 "A",
                 u"\uFEFFA", "UTF-8");
}

TEST(DecodeFile, letsTheMarkDecideEvenAgainstBrokenBytes) {
  expectDecoding("\xEF\xBB\xBF"
                 "caf\xE9 \xE8",
                 u"caf ", "UTF-8", 2);
  expectDecoding(bytesFromHex("fffe00d8410000dcff"), u"A", "UTF-16LE", 5);
  expectDecoding(bytesFromHex("feffd80000410041dbff"), u"AA", "UTF-16BE", 4);
}

TEST(DecodeFile, findsUtf16WithoutAMarkByTheZerosOfItsHead) {
  expectDecoding(utf16(kCard, true), kCard, "UTF-16LE");
  expectDecoding(utf16(kCard, false), kCard, "UTF-16BE");
  expectDecoding(utf16(u"AB", true), u"AB", "UTF-16LE");
  expectDecoding(utf16(u"AB", false), u"AB", "UTF-16BE");
  expectDecoding(utf16(u"AB", true) + "x", u"AB", "UTF-16LE", 1);
  expectDecoding(utf16(u"BEGIN:VC", false) + bytesFromHex("30ce30ad"), u"BEGIN:VCノキ", "UTF-16BE");
}

TEST(DecodeFile, wantsTheZerosInEverySecondByteOfTheHead) {
  expectDecoding(std::string_view("A\0", 2), Text(u"A\0", 2), "UTF-8");
  expectDecoding(std::string_view("A\0B\0CD", 6), Text(u"A\0B\0CD", 6), "UTF-8");
  expectDecoding(std::string_view("\0\0\0\0", 4), Text(4, u'\0'), "UTF-8");
}

TEST(DecodeFile, dropsTheBrokenBytesOfUtf8AndCountsThem) {
  const std::string card = utf8FromText(u"FN:Jörg Müller\r\nNOTE:schön, größer, übel\r\n");
  // One in the middle of a line, one in front, one at the very end.
  expectDecoding(std::string("\xA0") + card.substr(0, 10) + std::string("\xFF") + card.substr(10) +
                     "\xC3",
                 textFromUtf8(card), "UTF-8", 3);
  expectDecoding(card + "\xF0\x9F\x98", textFromUtf8(card), "UTF-8", 3);
  expectDecoding(card + "\xE2\x82"
                        "A",
                 textFromUtf8(card) + u"A", "UTF-8", 2);
}

TEST(DecodeFile, isUtf8OnlyWithMoreSoundCharactersThanBrokenBytes) {
  expectDecoding("\xC3\xA9\xC3\xA9 \xE9", u"éé ", "UTF-8", 1);
  expectDecoding("\xC3\xA9 \xE9", u"Ã© é", "windows-1252");
  expectDecoding("\xF0\x9F\x98\x80\xF0\x9F\x98\x80\xE9", u"\U0001F600\U0001F600", "UTF-8", 1);
}

TEST(DecodeFile, putsCharactersTogetherThatAFoldHasTorn) {
  const auto torn = [](std::string_view bytes) { return decode(bytes); };
  Decoding decoding = torn("NOTE:\xD0\xB1\xD0\xBE\xD0\r\n \xBB\xD0\xB5\r\n");
  EXPECT_EQ(decoding.text, u"NOTE:бол\r\n е\r\n");
  EXPECT_EQ(decoding.report.tornCharacters, 1U);
  EXPECT_EQ(decoding.report.droppedBytes, 0U);
  for (const char* fold : {"\n ", "\r\n\t", "\r "}) {
    decoding = torn(std::string("\xF0\x9F") + std::string(fold) + "\x98\x80!");
    EXPECT_EQ(decoding.text, Text(u"\U0001F600") + textFromUtf8(fold) + u"!");
    EXPECT_EQ(decoding.report.tornCharacters, 1U);
  }
  EXPECT_EQ(torn("\xE2\n \x82\xAC").text, u"€\n ");
  EXPECT_EQ(torn("\xE2\x82\n \xAC").text, u"€\n ");
}

TEST(DecodeFile, putsNothingTogetherAcrossOtherBreaks) {
  const std::string sound = "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9";
  for (const char* between : {"\r\n", "\n\n ", " ", "\r\n  ", "\r\r\n ", ""}) {
    const Decoding decoding = decode(sound + "\xE2\x82" + between + "\xC3");
    EXPECT_EQ(decoding.report.tornCharacters, 0U);
    EXPECT_EQ(decoding.report.droppedBytes, 3U);
  }
  EXPECT_EQ(decode(sound + "\xD0\r\n ").report.droppedBytes, 1U);
  EXPECT_EQ(decode(sound + "\xD0\r\n").report.droppedBytes, 1U);
  EXPECT_EQ(decode(sound + "\xED\n \xA0\x80").report.tornCharacters, 0U);
}

TEST(DecodeFile, readsWesternTextOfOddAndEvenLength) {
  for (const TextView text :
       {TextView(u"café"), TextView(u"cafés"), TextView(u"é"), TextView(u"FN:Jörg Müller"),
        TextView(u"NOTE:naïve café"), TextView(u"NOTE:où est la gare"), TextView(u"NOTE:à bientôt"),
        TextView(u"N:Núñez;Íñigo\r\nFN:Íñigo Núñez\r\nNOTE:mañana por la mañana\r\n"),
        TextView(u"N:Sørensen;Åse\r\nFN:Åse Sørensen\r\nADR:;;Ærøvej 5;Tønder;;;Danmark\r\n")}) {
    expectDecoding(latin1(text), text, "windows-1252");
    expectDecoding(latin1(text) + "\n", Text(text) + u"\n", "windows-1252");
  }
  expectDecoding("\x93"
                 "c\x9Cur\x94 \x80",
                 u"“cœur” €", "windows-1252");
}

TEST(DecodeFile, readsOtherLegacyEncodingsThatTellClearly) {
  struct Row {
    const char* hex;
    TextView text;
    std::string_view encoding;
  };
  // A name and a note.
  constexpr Row kRows[] = {
      {"4e3a8e5293633b91be98590d0a4e4f54453a8cdf8ce382c99364986282b582c482ad82be82b382a281420d0a",
       u"N:山田;太郎\r\nNOTE:午後に電話してください。\r\n", "Shift_JIS"},
      {"4e3abbb3c5c43bc2c0cfba0d0a4e4f54453ab8e1b8e5a4cbc5c5cfc3a4b7a4c6a4afa4c0a4b5a4a4a1a30d0a",
       u"N:山田;太郎\r\nNOTE:午後に電話してください。\r\n", "EUC-JP"},
      {"4e3ab3af3ba46aa4e50d0a4e4f54453abdd0a455a4c8a5b4b971b8dcb5b9a7daa141a4a4a473b8f4a440ac710d0"
       "a",
       u"N:陳;大文\r\nNOTE:請下午打電話給我，中山路一段\r\n", "Big5"},
      {"4e3acdf53bd0a1c3f70d0a4e4f54453ac7ebcfc2cee7b4f2b5e7bbb0b8f8ced2a3acd6d0c9bdc2b7d2bbb6ce0d0"
       "a",
       u"N:王;小明\r\nNOTE:请下午打电话给我，中山路一段\r\n", "GB18030"},
      {"4e3ab1e83bc3b6bcf60d0a4e4f54453abfc0c8c4bfa120c0fcc8adc7d820c1d6bcbcbfe420b0adb3b2b4ebb7ce2"
       "0bcadbfefbdc30d0a",
       u"N:김;철수\r\nNOTE:오후에 전화해 주세요 강남대로 서울시\r\n", "EUC-KR"},
      {"4e3ac8e2e0edeee23bcfb8f2f00d0a4e4f54453acfeee7e2eeede8f2fc20efeef1ebe520eee1e5e4e00d0a",
       u"N:Иванов;Пётр\r\nNOTE:Позвонить после обеда\r\n", "windows-1251"},
      {"4e3ae9d7c1cecfd73bf0a3d4d20d0a4e4f54453af0cfdad7cfcec9d4d820d0cfd3ccc520cfc2c5c4c10d0a",
       u"N:Иванов;Пётр\r\nNOTE:Позвонить после обеда\r\n", "KOI8-R"},
      {"4e3ad0e1f0e1e4fcf0eff5ebeff23bc3e9fef1e3eff20d0a4e4f54453acde120f4e7ebe5f6f9eddef3f920f4ef2"
       "0e1f0fce3e5f5ece10d0a",
       u"N:Παπαδόπουλος;Γιώργος\r\nNOTE:Να τηλεφωνήσω το απόγευμα\r\n", "ISO-8859-7"},
      {"4e3a5761b3ea73613ba3756b61737a0d0a4e4f54453a5a61647a776f6e69e620706f20706fb375646e69752c208"
       "473706f746b616e696594207720626975727a650d0a",
       u"N:Wałęsa;Łukasz\r\nNOTE:Zadzwonić po południu, „spotkanie” w biurze\r\n", "windows-1250"},
      {"4e3ae3cde3cf3bc3cde3cf0d0a4e4f54453ac7e1c7cad5c7e120c8dacf20c7e1d9e5d10d0a",
       u"N:محمد;أحمد\r\nNOTE:الاتصال بعد الظهر\r\n", "windows-1256"},
  };
  for (const Row& row : kRows) {
    const std::string ascii = "BEGIN:VCARD\r\nVERSION:2.1\r\n";
    expectDecoding(ascii + bytesFromHex(row.hex), Text(ascii.begin(), ascii.end()) + Text(row.text),
                   row.encoding);
  }
}

TEST(DecodeFile, followsTheEncodingThatItIsTold) {
  const Decoding shift = decode(bytesFromHex("938c8b9e"), "SHIFT_JIS");
  EXPECT_EQ(shift.text, u"東京");
  EXPECT_EQ(shift.report.encoding, "Shift_JIS");
  EXPECT_EQ(decode("\xC3\xA9", "iso-8859-1").text, u"Ã©");
  EXPECT_EQ(decode("caf\xE9", "latin1").text, u"café");
  EXPECT_EQ(decode("\xF4", "cp850").text, u"¶");
  EXPECT_EQ(decode("\xEF\xBB\xBF"
                   "A",
                   "utf8")
                .text,
            u"A");
  EXPECT_EQ(decode("\xEF\xBB\xBF"
                   "A",
                   "windows-1252")
                .text,
            u"ï»¿A");
  EXPECT_EQ(decode(utf16(kCard, true), "utf-16le").text, kCard);
  EXPECT_EQ(decode(std::string("\xFF\xFE") + utf16(kCard, true), "UTF-16").text, kCard);
  EXPECT_EQ(decode(std::string("\xFF\xFE") + utf16(kCard, true), "utf-16LE").text, kCard);
  EXPECT_EQ(decode(utf16(kCard, false), "utf-16").text, kCard);
  EXPECT_EQ(decode("", "koi8-r").text, u"");
}

TEST(DecodeFile, dropsAndCountsWhatTheToldEncodingCannotHold) {
  const Decoding ascii = decode("caf\xE9s\xFF", "us-ascii");
  EXPECT_EQ(ascii.text, u"cafs");
  EXPECT_EQ(ascii.report.droppedBytes, 2U);
  const Decoding utf8 = decode("\xC3\xA9 \xE9\xE9\xE9", "UTF-8");
  EXPECT_EQ(utf8.text, u"é ");
  EXPECT_EQ(utf8.report.droppedBytes, 3U);
  const Decoding shift = decode(bytesFromHex("938c8b"), "shift_jis");
  EXPECT_EQ(shift.text, u"東");
  EXPECT_EQ(shift.report.droppedBytes, 1U);
  const Decoding odd = decode(bytesFromHex("410000d84200ff"), "utf-16le");
  EXPECT_EQ(odd.text, u"AB");
  EXPECT_EQ(odd.report.droppedBytes, 3U);
}

TEST(DecodeFile, doesNotKnowEveryEncoding) {
  using namespace std::string_view_literals;
  for (const std::string_view name : {""sv, "nonsense"sv, "utf-9"sv, "\xFF"sv, "utf-8\0x"sv,
                                      "../../etc/passwd"sv, ","sv, "utf-8,nonsense,swaplfnl,"sv}) {
    DecodingReport report;
    report.droppedBytes = 42;
    const auto text = decodeFile("A", name, &report);
    EXPECT_EQ(text.has_value(), isKnownEncoding(name)) << name;
    EXPECT_EQ(text, std::nullopt) << name;
    EXPECT_EQ(report.droppedBytes, 42U);
  }
  for (const std::string_view name : {"UTF-8", "utf8", "ks_c_5601-1987", "cp1252", "ibm-037"}) {
    EXPECT_TRUE(isKnownEncoding(name)) << name;
  }
}

TEST(DecodeFile, needsNoReport) {
  EXPECT_EQ(decodeFile("caf\xE9"), u"café");
}

TEST(DecodeFile, handlesAnyBytes) {
  std::mt19937_64 random(testSeed());
  std::string all(256, '\0');
  std::iota(all.begin(), all.end(), '\0');
  for (int round = 0; round < 2000; ++round) {
    const std::string bytes = randomString(all, random() % 200, random);
    const Decoding decoding = decode(bytes);
    ASSERT_TRUE(decoding.text);
    EXPECT_FALSE(decoding.report.encoding.empty());
    EXPECT_LE(decoding.report.droppedBytes, bytes.size());
    EXPECT_TRUE(isKnownEncoding(decoding.report.encoding)) << decoding.report.encoding;
  }
}

} // namespace
} // namespace cardwright
