#include "cardwright/vcard_utilities.h"
#include "cardwright/vcard_utils.h"
#include "exhaustive/reference_codec.h"
#include "exhaustive/short_texts.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <ostream>
#include <string>

namespace cardwright {
namespace {

constexpr std::array<std::optional<TextView>, 6> kCharsets{std::nullopt, u"utf-8",    u"ISO-8859-1",
                                                           u"utf-16le",  u"utf-16be", u"x-unknown"};

/// What a test was about.
struct Shown {
  const Text& text;
  std::optional<TextView> charset = std::nullopt;
  bool isSet = false;

  friend std::ostream& operator<<(std::ostream& stream, const Shown& shown) {
    return stream << testing::PrintToString(shown.text) << " in "
                  << testing::PrintToString(shown.charset) << ", " << shown.isSet;
  }
};

TEST(ExhaustiveCodec, decodesValuesLikeTheReference) {
  forEachShortText([](const Text& text) {
    for (const auto& charset : kCharsets) {
      for (const bool isQuotedPrintable : {false, true}) {
        ASSERT_EQ(VCardUtils::decodeTextValue(text, isQuotedPrintable, charset),
                  ReferenceCodec::value(text, isQuotedPrintable, charset))
            << Shown{text, charset, isQuotedPrintable};
      }
    }
  });
}

TEST(ExhaustiveCodec, decodesListsLikeTheReference) {
  forEachShortText([](const Text& text) {
    for (const auto& charset : {kCharsets[0], kCharsets[1]}) {
      for (const bool isQuotedPrintable : {false, true}) {
        ASSERT_EQ(VCardUtils::decodeTextMultiValue(text, isQuotedPrintable, charset),
                  ReferenceCodec::multiValue(text, isQuotedPrintable, charset))
            << Shown{text, charset, isQuotedPrintable};
      }
    }
  });
}

TEST(ExhaustiveCodec, decodesQuotedPrintableLikeTheReference) {
  forEachShortText([](const Text& text) {
    for (const auto& charset : kCharsets) {
      ASSERT_EQ(VCardUtilities::stringFromQuotedPrintableStringWithCharset(text, charset),
                ReferenceCodec::fromQuotedPrintable(text, charset))
          << Shown{text, charset};
    }
  });
}

TEST(ExhaustiveCodec, decodesBytesLikeTheReference) {
  forEachShortText([](const Text& text) {
    const std::string bytes = ReferenceCodec::bytes(text);
    for (const auto& charset : kCharsets) {
      ASSERT_EQ(VCardUtilities::stringFromData(bytes, charset),
                ReferenceCodec::fromData(bytes, charset))
          << Shown{text, charset};
    }
  });
}

TEST(ExhaustiveCodec, writesValuesLikeTheReferenceAndReadsThemBack) {
  forEachShortText([](const Text& text) {
    Text readBack;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text.substr(i, 2) != u"\r\n") {
        readBack += text[i] == u'\r' ? u'\n' : text[i];
      }
    }
    for (const bool escapeSemicolons : {false, true}) {
      Text written = u"=";
      VCardUtils::writeTextValue(text, written, escapeSemicolons);
      ASSERT_EQ(written, Text(u"=").append(ReferenceCodec::written(text, escapeSemicolons)))
          << Shown{text, std::nullopt, escapeSemicolons};
      ASSERT_EQ(VCardUtils::decodeTextValue(TextView(written).substr(1), false, std::nullopt),
                readBack)
          << Shown{text, std::nullopt, escapeSemicolons};
    }
  });
}

TEST(ExhaustiveCodec, writesParametersLikeTheReferenceAndReadsThemBack) {
  forEachShortText([](const Text& text) {
    const Text written = VCardUtils::encodeParameterTextValue(text);
    ASSERT_EQ(written, ReferenceCodec::writtenParameter(text)) << Shown{text};
    ASSERT_EQ(VCardUtils::decodeParameterTextValue(written), text) << Shown{text};
    ASSERT_EQ(VCardUtils::decodeParameterTextValue(text), text) << Shown{text};
  });
}

TEST(ExhaustiveCodec, makesLineBreaksPairsLikeTheReference) {
  forEachShortText([](const Text& text) {
    for (const Text& source : {text, Text(u"=0d=0A").append(text), Text(text).append(u"=0D=0a"),
                               Text(u"=0D").append(text)}) {
      ASSERT_EQ(VCardUtils::normalizedDecodedString(text, source),
                ReferenceCodec::normalized(text, source))
          << Shown{text} << " " << testing::PrintToString(source);
    }
  });
}

TEST(ExhaustiveCodec, trimsSoftBreaksLikeTheReference) {
  forEachShortText([](const Text& text) {
    Text line = text;
    VCardUtils::trimQuotedPrintableSoftBreakSuffixFromLine(line,
                                                           VCardUtils::spaceAndTabCharacterSet());
    ASSERT_EQ(line, ReferenceCodec::withoutSoftBreak(text)) << Shown{text};
  });
}

TEST(ExhaustiveCodec, leavesTextsOfTheseSignsAsTheyAre) {
  forEachShortText([](const Text& text) {
    ASSERT_EQ(VCardUtilities::validXMLString(text), text) << Shown{text};
    const std::string bytes = ReferenceCodec::bytes(text);
    ASSERT_EQ(VCardUtilities::cleanUTF8(bytes), bytes) << Shown{text};
    const char16_t first = text.empty() || text.starts_with(u"\r\n") ? u'\0' : text[0];
    ASSERT_EQ(VCardUtilities::firstCharacter(text), first) << Shown{text};
  });
}

} // namespace
} // namespace cardwright
