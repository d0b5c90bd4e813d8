#include "base/charset.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard_utilities.h"
#include "support/bytes.h"
#include "support/combinations.h"
#include "support/seed.h"
#include "support/text_printer.h"
#include "support/utf8_repair.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>

namespace cardwright {
namespace {

struct Row {
  TextView name;
  const char* bytes;   ///< hexadecimal
  TextView text;       ///< in a script that the set is made for
  const char* illegal; ///< null where every byte means something
  const char* cut;     ///< null where every character is one byte
};

constexpr Row kRows[] = {
    {u"ascii", "506c61696e207e2074657874", u"Plain ~ text", "c3", nullptr},
    {u"us-ascii", "506c61696e207e2074657874", u"Plain ~ text", "ff", nullptr},
    {u"utf-8", "c3a920e282ac20f09d849e", u"é € 𝄞", "c328", "c3a920e282ac20f09d84"},
    {u"iso-8859-1", "4772fcdf652c20ff", u"Grüße, ÿ", nullptr, nullptr},
    {u"iso8859_1", "bf5175e93f", u"¿Qué?", nullptr, nullptr},
    {u"iso-8859-2", "44766ff8e16b20a3756b61737a", u"Dvořák Łukasz", nullptr, nullptr},
    {u"iso-8859-3", "e66975bc61fd64652047b16177646578", u"ĉiuĵaŭde Għawdex", "a5", nullptr},
    {u"iso-8859-4", "ab6972747320d120b3", u"Ģirts Ņ ŗ", nullptr, nullptr},
    {u"iso-8859-5", "b8d2d0ddded220a2", u"Иванов Ђ", nullptr, nullptr},
    {u"iso-8859-6", "e5cde5cf", u"محمد", "a1", nullptr},
    {u"iso-8859-7", "c3e9fef1e3eff2", u"Γιώργος", "d2", nullptr},
    {u"iso-8859-8", "e3e5e3", u"דוד", "a1", nullptr},
    {u"iso-8859-9", "defc6b72fc2059fd6c6d617a", u"Şükrü Yılmaz", nullptr, nullptr},
    {u"iso-8859-10", "def37220af20b6", u"Þór Ŋ ķ", nullptr, nullptr},
    {u"iso-8859-11", "cac1aad2c2", u"สมชาย", "db", nullptr},
    {u"iso-8859-13", "de656d616974eb20cc", u"Žemaitė Ģ", nullptr, nullptr},
    {u"iso-8859-14", "d0796e20de20a2", u"Ŵyn Ŷ ḃ", nullptr, nullptr},
    {u"iso-8859-15", "63bd757220a4", u"cœur €", nullptr, nullptr},
    {u"iso-2022-cn", "1b2429410e56504e440f", u"中文", "80", "1b2429410e56504e"},
    {u"iso-2022-kr", "1b2429430e475131390f", u"한국", "80", "1b2429430e475131"},
    {u"iso-2022-jp", "1b2442467c4b5c1b2842", u"日本", "80", "1b2442467c4b"},
    {u"koi8-r", "f0a3d4d2", u"Пётр", nullptr, nullptr},
    {u"koi8-u", "ebc9a7d720bd", u"Київ Ґ", nullptr, nullptr},
    {u"big5", "a578c657", u"台灣", "a120", "a578c6"},
    {u"euc-kr", "bcadbfef", u"서울", "ff", "bcadbf"},
    {u"ks_c_5601-1987", "bacebbea", u"부산", "ff", "bacebb"},
    {u"euc-jp", "c5ecb5fe", u"東京", "ff", "c5ecb5"},
    {u"euc-cn", "b1b1bea9", u"北京", "ff", "b1b1be"},
    {u"euc-tw", "c4e3c5c6", u"中文", "ff", "c4e3c5"},
    {u"hz-gb-2312", "7e7b31313e297e7d", u"北京", "ff", "7e7b31313e"},
    {u"gb-2312", "b1b1bea920a2e32095328236", u"北京 € 𠀀", "ff", "b1b1bea920a2e320953282"},
    {u"gb2312", "c9cfbaa320a949", u"上海 ㊣", "ff", "c9cfbaa320a9"},
    {u"shift_jis", "938c8b9e20b1", u"東京 ｱ", "a0", "938c8b"},
    {u"windows-1250", "5761b3ea73612084aff3b3e694", u"Wałęsa „Żółć”", nullptr, nullptr},
    {u"windows-1251", "c8e2e0edeee220b9", u"Иванов №", nullptr, nullptr},
    {u"windows-1252", "93639c7572942080", u"“cœur” €", nullptr, nullptr},
    {u"windows-1253", "c3e9fef1e3eff22080", u"Γιώργος €", "d2", nullptr},
    {u"windows-1254", "defc6b72fc2059fd6c6d617a2080", u"Şükrü Yılmaz €", nullptr, nullptr},
    {u"windows-1255", "e3e5e320a4", u"דוד ₪", "fc", nullptr},
    {u"windows-1256", "e3cde3cf2081", u"محمد پ", nullptr, nullptr},
    {u"windows-1257", "de656d616974eb2080", u"Žemaitė €", "a1", nullptr},
    {u"windows-1258", "d0fdf5cc6e6720fe", u"Đươ\u0300ng ₫", nullptr, nullptr},
    {u"utf-16", "fffee900ac2034d81edd", u"é€𝄞", "dcdc", "fffee900ac2034d81e"},
    {u"utf-16le", "e900ac2034d81edd", u"é€𝄞", "00d8", "e900ac2034d81e"},
    {u"utf-16be", "00e920acd834dd1e", u"é€𝄞", "d800", "00e920acd834dd"},
};

std::optional<Text> decoded(const Row& row, std::string_view hex) {
  return textFromBytes(bytesFromHex(hex), charsetNamed(row.name));
}

TEST(CharsetTable, hasItsFortyFiveNamesInAnyCase) {
  EXPECT_EQ(std::size(kRows), 45U);
  for (const Row& row : kRows) {
    EXPECT_NE(charsetNamed(row.name), Charset::none) << utf8FromText(row.name);
    Text upper(row.name);
    for (char16_t& unit : upper) {
      unit = unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    }
    EXPECT_EQ(charsetNamed(upper), charsetNamed(row.name));
  }
}

TEST(CharsetTable, doesNotKnowOtherNames) {
  for (const TextView name :
       {u"", u" utf-8", u"utf8", u"latin-1", u"iso-8859-12", u"iso-8859-16", u"windows-1249",
        u"windows-1259", u"cp1252", u"gbk", u"a\u017Fcii", u"utf-8 "}) {
    EXPECT_EQ(charsetNamed(name), Charset::none) << utf8FromText(name);
  }
  EXPECT_EQ(charsetNamed(Text(100000, u'a')), Charset::none);
}

TEST(CharsetTable, isLookedUpInLowerCase) {
  EXPECT_EQ(charsetNamed(u"\u212AOI8-R"), Charset::koi8r);
}

TEST(EncodingForCharset, isZeroForAnAbsentOrUnknownName) {
  EXPECT_EQ(VCardUtilities::encodingForCharset(std::nullopt), 0);
  EXPECT_EQ(VCardUtilities::encodingForCharset(u"nonsense"), 0);
  EXPECT_NE(VCardUtilities::encodingForCharset(u"UTF-8"), 0);
  EXPECT_EQ(VCardUtilities::encodingForCharset(u"ASCII"),
            VCardUtilities::encodingForCharset(u"us-ascii"));
  EXPECT_EQ(VCardUtilities::encodingForCharset(u"gb2312"),
            VCardUtilities::encodingForCharset(u"gb-2312"));
}

TEST(TextFromBytes, decodesTextOfItsOwnScript) {
  for (const Row& row : kRows) {
    EXPECT_EQ(decoded(row, row.bytes), row.text) << utf8FromText(row.name);
  }
}

TEST(TextFromBytes, failsOnAnIllegalByteWhereverItStands) {
  for (const Row& row : kRows) {
    if (row.illegal == nullptr) {
      std::string all(256, '\0');
      std::iota(all.begin(), all.end(), '\0');
      const auto text = textFromBytes(all, charsetNamed(row.name));
      ASSERT_TRUE(text) << utf8FromText(row.name);
      EXPECT_EQ(text->size(), 256U) << utf8FromText(row.name);
      continue;
    }
    const std::string illegal = row.illegal;
    EXPECT_FALSE(decoded(row, illegal)) << utf8FromText(row.name);
    EXPECT_FALSE(decoded(row, row.bytes + illegal)) << utf8FromText(row.name);
    if (row.name != u"utf-16") {
      EXPECT_FALSE(decoded(row, illegal + row.bytes)) << utf8FromText(row.name);
    }
  }
}

TEST(TextFromBytes, failsOnBytesThatAreCutShort) {
  for (const Row& row : kRows) {
    if (row.cut != nullptr) {
      EXPECT_FALSE(decoded(row, row.cut)) << utf8FromText(row.name);
    }
  }
}

TEST(TextFromBytes, isEmptyForNoBytes) {
  for (const Row& row : kRows) {
    EXPECT_EQ(decoded(row, ""), u"") << utf8FromText(row.name);
  }
}

TEST(TextFromBytes, startsAfreshAfterAFailureAndInTheMiddleOfAState) {
  for (const Row& row : kRows) {
    if (row.cut != nullptr) {
      EXPECT_FALSE(decoded(row, row.cut));
      EXPECT_EQ(decoded(row, row.bytes), row.text) << utf8FromText(row.name);
    }
  }
}

TEST(TextFromBytes, keepsAByteOrderMarkUnlessItTellsTheOrder) {
  EXPECT_EQ(textFromBytes(bytesFromHex("efbbbf41"), Charset::utf8), u"\uFEFFA");
  EXPECT_EQ(textFromBytes(bytesFromHex("fffe4100"), Charset::utf16le), u"\uFEFFA");
  EXPECT_EQ(textFromBytes(bytesFromHex("feff0041"), Charset::utf16be), u"\uFEFFA");
  EXPECT_EQ(textFromBytes(bytesFromHex("fffe4100"), Charset::utf16), u"A");
  EXPECT_EQ(textFromBytes(bytesFromHex("feff0041"), Charset::utf16), u"A");
  EXPECT_EQ(textFromBytes(bytesFromHex("0041"), Charset::utf16), u"A");
}

TEST(TextFromBytes, failsOnLoneSurrogatesAndOddLengths) {
  EXPECT_FALSE(textFromBytes(bytesFromHex("00d84100"), Charset::utf16le));
  EXPECT_FALSE(textFromBytes(bytesFromHex("00dc"), Charset::utf16le));
  EXPECT_FALSE(textFromBytes(bytesFromHex("d8000041"), Charset::utf16be));
  EXPECT_FALSE(textFromBytes(bytesFromHex("4100ff"), Charset::utf16le));
  EXPECT_FALSE(textFromBytes(bytesFromHex("feff00"), Charset::utf16));
}

TEST(TextFromBytes, takesUnassignedWindowsBytesForControls) {
  EXPECT_EQ(textFromBytes(bytesFromHex("818d"), Charset::windows1252), u"\u0081\u008D");
  EXPECT_EQ(textFromBytes(bytesFromHex("98"), Charset::windows1251), u"\u0098");
}

TEST(TextFromBytes, readsShiftJisWithItsAsciiBackslash) {
  EXPECT_EQ(textFromBytes("\\~", Charset::shiftJis), u"\\~");
  EXPECT_EQ(textFromBytes(bytesFromHex("8160817c"), Charset::shiftJis), u"\uFF5E\uFF0D");
}

TEST(TextFromBytes, givesTheSameWithAndWithoutItsLaneForAscii) {
  // A character at the end takes the whole text through the converter.
  for (const Row& row : kRows) {
    const Charset charset = charsetNamed(row.name);
    if (!keepsAscii(charset)) {
      continue;
    }
    std::string ascii(128, '\0');
    std::iota(ascii.begin(), ascii.end(), '\0');
    const Text expected(ascii.begin(), ascii.end());
    EXPECT_EQ(textFromBytes(ascii, charset), expected) << utf8FromText(row.name);
    EXPECT_EQ(textFromBytes(ascii + bytesFromHex(row.bytes), charset), expected + Text(row.text))
        << utf8FromText(row.name);
  }
}

TEST(TextFromBytes, decodesLongTextInPieces) {
  for (const Row& row : kRows) {
    if (row.name == u"utf-16" || row.name == u"iso-2022-kr") {
      continue; // They begin with a mark and a header, which stand only once.
    }
    const std::string blank = row.name == u"utf-16be"   ? bytesFromHex("0020")
                              : row.name == u"utf-16le" ? bytesFromHex("2000")
                                                        : " ";
    std::string bytes;
    Text text;
    while (text.size() < 10000) {
      bytes.append(bytesFromHex(row.bytes)).append(blank);
      text.append(row.text).push_back(u' ');
    }
    EXPECT_TRUE(textFromBytes(bytes, charsetNamed(row.name)) == text) << utf8FromText(row.name);
  }
}

TEST(TextFromBytes, tellsWhereverHzIsCutShort) {
  const std::string whole = "a~~b~\n~{11>)~}.~{NDVP";
  EXPECT_EQ(textFromBytes(whole, Charset::hz), u"a~b北京.文中");
  for (const char* cut : {"a~", "~{11>", "~{11>)~", "~{~", "~~~", "a\n~", "~{NDVP~}~"}) {
    EXPECT_FALSE(textFromBytes(cut, Charset::hz)) << cut;
  }
}

TEST(StringFromData, repairsWhatTheNamedCharsetCannotReadAsUtf8) {
  for (const Row& row : kRows) {
    for (const char* hex : {row.illegal, row.cut}) {
      if (hex != nullptr) {
        const std::string bytes = bytesFromHex(hex);
        EXPECT_EQ(VCardUtilities::stringFromData(bytes, row.name),
                  textFromUtf8(repairedByTheRule(bytes)))
            << utf8FromText(row.name) << " " << hex;
      }
    }
  }
  EXPECT_EQ(VCardUtilities::stringFromData(bytesFromHex("61ffc3a9"), u"utf-8"), u"aé");
  EXPECT_EQ(VCardUtilities::stringFromData(bytesFromHex("41c3a9ff"), u"us-ascii"), u"Aé");
  EXPECT_EQ(VCardUtilities::stringFromData(bytesFromHex("61c3"), u"utf-8"), u"");
}

TEST(StringFromData, isAbsentOnlyForAbsentBytes) {
  EXPECT_EQ(VCardUtilities::stringFromData(std::nullopt, u"utf-8"), std::nullopt);
  EXPECT_EQ(VCardUtilities::stringFromData(std::nullopt, std::nullopt), std::nullopt);
  EXPECT_EQ(VCardUtilities::stringFromData("", std::nullopt), u"");
  EXPECT_EQ(VCardUtilities::stringFromData("", u"utf-16"), u"");
}

TEST(StringFromData, looksForUtf16WithoutACharset) {
  const auto sniffed = [](std::string_view hex) {
    return VCardUtilities::stringFromData(bytesFromHex(hex), std::nullopt);
  };
  EXPECT_EQ(sniffed("fffe4100"), u"\uFEFFA");
  EXPECT_EQ(sniffed("feff0041"), u"\uFEFFA");
  EXPECT_EQ(sniffed("fffe"), u"\uFEFF");
  EXPECT_EQ(sniffed("41004200"), u"AB");
  EXPECT_EQ(sniffed("00410042"), u"AB");
  EXPECT_EQ(VCardUtilities::stringFromData(bytesFromHex("00410042"), u"nonsense"), u"AB");
  // Too short, or not in every second byte: valid UTF-8 after all.
  EXPECT_EQ(sniffed("4100"), Text(u"A\0", 2));
  EXPECT_EQ(sniffed("41004142"), Text(u"A\0AB", 4));
  EXPECT_EQ(sniffed("00000041"), Text(u"\0\0\0A", 4));
  // A guess that cannot be decoded is dropped.
  EXPECT_EQ(sniffed("4100420043"), Text(u"A\0B\0C", 5));
}

TEST(StringFromData, triesTheFallbacksInTheirOrder) {
  const auto guessed = [](std::string_view hex) {
    return VCardUtilities::stringFromData(bytesFromHex(hex), u"nonsense");
  };
  EXPECT_EQ(guessed("636166c3a9"), u"café");
  EXPECT_EQ(guessed("efbbbf41"), u"\uFEFFA");
  // An even number of bytes that are no UTF-8 is taken for UTF-16, big-endian without a mark.
  EXPECT_EQ(guessed("636166e9"), u"\u6361\u66E9");
  EXPECT_EQ(guessed("e941"), u"\uE941");
  // A lone surrogate that way round, but not the other.
  EXPECT_EQ(guessed("d8e9"), u"\uE9D8");
  EXPECT_EQ(guessed("636166e973"), u"cafés");
  EXPECT_EQ(guessed("80"), u"€");
  EXPECT_EQ(guessed("d8d8"), u"ØØ");
  EXPECT_EQ(guessed("81"), u"\u0081");
}

TEST(StringFromData, findsSomethingInAnyBytes) {
  std::mt19937_64 random(testSeed());
  std::string all(256, '\0');
  std::iota(all.begin(), all.end(), '\0');
  for (int round = 0; round < 20000; ++round) {
    const std::string bytes = randomString(all, random() % 12, random);
    EXPECT_TRUE(VCardUtilities::stringFromData(bytes, std::nullopt));
    EXPECT_TRUE(VCardUtilities::stringFromData(bytes, kRows[random() % std::size(kRows)].name));
  }
}

TEST(StringFromData, readsTheSharedListsOfNamesInTheirEncoding) {
  EXPECT_EQ(VCardUtilities::stringFromData(bytesFromHex("c3a9"), u"UTF-8"), u"é");
  EXPECT_EQ(VCardUtilities::stringFromData(bytesFromHex("c3a9"), u"iso-8859-1"), u"Ã©");
}

} // namespace
} // namespace cardwright
