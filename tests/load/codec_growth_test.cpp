#include "cardwright/decode.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard_utilities.h"
#include "cardwright/vcard_utils.h"
#include "support/kept_memory.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace cardwright {
namespace {

constexpr double kLimit = 2.3;
constexpr std::size_t kMegabyte = std::size_t{1} << 20U;

/// A text or bytes of one piece over and over, with an end.
template <typename String>
String repeated(const String& piece, std::size_t count, const String& end) {
  String text;
  text.reserve(piece.size() * count + end.size());
  for (std::size_t i = 0; i < count; ++i) {
    text += piece;
  }
  return text += end;
}

/// Runs an operation over 1, 2 and 4 MB of a piece.
template <typename String>
void expectLinearGrowth(const std::string& name, const String& piece, const String& end,
                        const std::function<void(const String&)>& operation) {
  // An even number of pieces, or one size could look like UTF-16 and its double not.
  const std::size_t count = kMegabyte / piece.size() / 2 * 2;
  for (const std::size_t few : {count, 2 * count}) {
    const String small = repeated(piece, few, end);
    const String large = repeated(piece, 2 * few, end);
    const auto runSmall = [&] { operation(small); };
    const auto runLarge = [&] { operation(large); };
    const double begin = threadSeconds();
    runLarge();
    if (threadSeconds() - begin < 0.001) {
      continue; // Too little to measure.
    }
    EXPECT_LT(growthBetween(runSmall, runLarge, kLimit), kLimit)
        << name << " of " << testing::PrintToString(piece) << " from " << few;
  }
}

struct TextOperation {
  const char* name;
  std::function<void(const Text&)> run;
};

template <typename Result>
void use(const Result& result) {
  static volatile bool sink = false;
  sink = sink || result == Result();
}

const TextOperation kTextOperations[] = {
    {"decodeTextValue",
     [](const Text& text) { use(VCardUtils::decodeTextValue(text, false, std::nullopt)); }},
    {"decodeTextValue in a charset",
     [](const Text& text) { use(VCardUtils::decodeTextValue(text, false, u"shift_jis")); }},
    {"decodeTextValue of quoted-printable",
     [](const Text& text) { use(VCardUtils::decodeTextValue(text, true, u"utf-8")); }},
    {"decodeTextValue of quoted-printable without a charset",
     [](const Text& text) { use(VCardUtils::decodeTextValue(text, true, std::nullopt)); }},
    {"decodeTextMultiValue",
     [](const Text& text) { use(VCardUtils::decodeTextMultiValue(text, false, std::nullopt)); }},
    {"decodeTextMultiValue of quoted-printable",
     [](const Text& text) { use(VCardUtils::decodeTextMultiValue(text, true, u"utf-8")); }},
    {"writeTextValue",
     [](const Text& text) {
       Text output;
       VCardUtils::writeTextValue(text, output, true);
       use(output);
     }},
    {"decodeParameterTextValue",
     [](const Text& text) { use(VCardUtils::decodeParameterTextValue(text)); }},
    {"encodeParameterTextValue",
     [](const Text& text) { use(VCardUtils::encodeParameterTextValue(text)); }},
    {"normalizedDecodedString",
     [](const Text& text) { use(VCardUtils::normalizedDecodedString(text, u"=0D=0A")); }},
    {"normalizedDecodedString's source",
     [](const Text& text) { use(VCardUtils::normalizedDecodedString(u"\n", text)); }},
    {"trimQuotedPrintableSoftBreakSuffixFromLine",
     [](const Text& text) {
       Text line = text;
       VCardUtils::trimQuotedPrintableSoftBreakSuffixFromLine(
           line, VCardUtils::spaceAndTabCharacterSet());
       use(line);
     }},
    {"rangeOfUnescapedDelimiter",
     [](const Text& text) {
       use(VCardUtilities::rangeOfUnescapedDelimiter(text, u'\u2028', {0, text.size()}));
     }},
    {"isEqualToCaseInsensitiveString",
     [](const Text& text) { use(VCardUtilities::isEqualToCaseInsensitiveString(text, text)); }},
    {"firstCharacter", [](const Text& text) { use(VCardUtilities::firstCharacter(text)); }},
    {"validXMLString", [](const Text& text) { use(VCardUtilities::validXMLString(text)); }},
    {"encodingForCharset", [](const Text& text) { use(VCardUtilities::encodingForCharset(text)); }},
    {"utf8FromText", [](const Text& text) { use(utf8FromText(text)); }},
};

TEST(CodecGrowth, isLinearInHostileText) {
  if (!kTimesAreMeaningful) {
    GTEST_SKIP() << "times mean nothing here";
  }
  keepMemory();
  const Text high(1, char16_t{0xD800});
  const Text pieces[] = {u"\\", u"=",        u",",      u";",       u"^", u"=0D=0A",
                         u" ,", u"\r\u0001", u"\u0301", Text(1, 0), high};
  for (const TextOperation& operation : kTextOperations) {
    for (const Text& piece : pieces) {
      expectLinearGrowth<Text>(operation.name, piece, u"", operation.run);
    }
  }
}

struct BytesOperation {
  const char* name;
  std::function<void(const std::string&)> run;
};

const BytesOperation kBytesOperations[] = {
    {"cleanUTF8", [](const std::string& bytes) { use(VCardUtilities::cleanUTF8(bytes)); }},
    {"stringFromData",
     [](const std::string& bytes) { use(VCardUtilities::stringFromData(bytes, std::nullopt)); }},
    {"stringFromData in HZ",
     [](const std::string& bytes) { use(VCardUtilities::stringFromData(bytes, u"hz-gb-2312")); }},
    {"stringFromData in ISO-2022-JP",
     [](const std::string& bytes) { use(VCardUtilities::stringFromData(bytes, u"iso-2022-jp")); }},
    {"decodeFile", [](const std::string& bytes) { use(decodeFile(bytes)); }},
    {"decodeFile in Shift_JIS",
     [](const std::string& bytes) { use(decodeFile(bytes, "shift_jis")); }},
};

TEST(CodecGrowth, isLinearInHostileBytes) {
  if (!kTimesAreMeaningful) {
    GTEST_SKIP() << "times mean nothing here";
  }
  keepMemory();
  const std::string pieces[] = {"\xFF",   "\xC3", "\xE2\x82", "\xC3\xA9",          "\xD0\r\n \xBB",
                                "\xE9\n", "~",    "\x1B$B",   std::string(1, '\0')};
  for (const BytesOperation& operation : kBytesOperations) {
    for (const std::string& piece : pieces) {
      for (const char* end : {"", "\xE9"}) {
        expectLinearGrowth<std::string>(operation.name, piece, end, operation.run);
      }
    }
  }
}

} // namespace
} // namespace cardwright
