#include "cardwright/cardwright.h"
#include "face/writing/ordinary_property.h"
#include "support/random_source.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <array>

namespace cardwright {
namespace {

/// Reads the property of a card of one property.
std::shared_ptr<VCardProperty> propertyOf(const std::string& line, int version) {
  const std::string text = "BEGIN:VCARD\r\nVERSION:" +
                           std::string(version == 2   ? "2.1"
                                       : version == 3 ? "3.0"
                                                      : "4.0") +
                           "\r\n" + line + "\r\nEND:VCARD\r\n";
  ReadOptions options;
  options.clean = false;
  for (const auto& card : readCards(text, nullptr, options)) {
    for (const auto& [name, properties] : card->propertyDict()) {
      if (name != u"VERSION") {
        return properties->front();
      }
    }
  }
  return nullptr;
}

class OrdinaryProperties : public testing::Test {
 protected:
  bool isOrdinaryIn(const VCardProperty& property, VersionCode version) {
    return isOrdinary(property, {version, version, m_formatter, m_recorder});
  }

  /// Whether the line is ordinary. If so, the careful way must write the same, and tell nothing.
  bool check(const VCardProperty& property, VersionCode syntax, VersionCode stated) {
    WriteReport report;
    WriteRecorder recorder(&report);
    recorder.cardBegins();
    const WritingContext context{syntax, stated, m_formatter, recorder};
    if (!isOrdinary(property, context)) {
      return false;
    }
    Text careful;
    const std::optional<SafeLine> line = safeLine(property, context);
    if (line) {
      appendLine(careful, *line);
    }
    Text direct;
    property.generate(direct, syntax, &m_formatter);
    EXPECT_EQ(direct, careful);
    EXPECT_TRUE(report.changes.empty());
    return true;
  }

  DateFormatter m_formatter{"en_US_POSIX"};
  WriteRecorder m_recorder{nullptr};
};

TEST_F(OrdinaryProperties, areMost) {
  for (const char* line :
       {"FN:Jane Doe", "N:Doe;Jane;;Dr.;", "item1.TEL;TYPE=HOME;TYPE=pref:+1 555 0100",
        "ADR;TYPE=WORK:;;1 High St\\, Top;Town;;12345;UK", "ORG:Example;Sales", "NOTE:a\\, b\\nc",
        "BDAY:1990-01-02", "REV:2020-01-02T03:04:05Z", "CATEGORIES:a,b\\;c", "X-FOO;X-BAR=1:text",
        "PHOTO;ENCODING=b;TYPE=JPEG:AAAA", "URL:https://example.com/", "NOTE:\xF0\x9F\x98\x80"}) {
    const auto property = propertyOf(line, 3);
    ASSERT_NE(property, nullptr) << line;
    EXPECT_TRUE(check(*property, 3, 3)) << line;
  }
}

TEST_F(OrdinaryProperties, haveNothingThatHasToBeMadeHarmless) {
  for (const char* line :
       {"FN:\\ Jane", "NOTE;ENCODING=QUOTED-PRINTABLE:a=20b", "TEL;CHARSET=UTF-8:1",
        "TEL;VALUE=uri:tel:1", "TEL;TYPE=\"a,b\":1", "URL:https://example.com/a\\,b", "BDAY:soon",
        "GEO:1;2", "it\xC3\xA9m.TEL:1", "NOTE:a\x01z"}) {
    const auto property = propertyOf(line, 3);
    ASSERT_NE(property, nullptr) << line;
    EXPECT_FALSE(check(*property, 3, 3)) << line;
  }
}

TEST_F(OrdinaryProperties, doNotFrameCardsAndHaveAValue) {
  EXPECT_FALSE(isOrdinaryIn(*VCardProperty::propertyWithName(u"BEGIN", u"VCARD"), 3));
  EXPECT_FALSE(isOrdinaryIn(*VCardProperty::propertyWithName(u"END", u"VCARD"), 3));
  EXPECT_FALSE(isOrdinaryIn(*VCardProperty::propertyWithName(u"", u"x"), 3));
  EXPECT_FALSE(isOrdinaryIn(*VCardProperty::propertyWithName(u"FN", std::optional<TextView>()), 3));
  EXPECT_FALSE(
      isOrdinaryIn(*VCardProperty::propertyWithName(u"FN", std::shared_ptr<VCardValue>()), 3));
  EXPECT_FALSE(isOrdinaryIn(*VCardProperty::propertyWithName(u"FN", u" x"), 3));
  EXPECT_TRUE(isOrdinaryIn(*VCardProperty::propertyWithName(u"FN", u"x"), 3));
}

TEST_F(OrdinaryProperties, areWrittenLikeAllOthers) {
  RandomSource random(20261121);
  static constexpr std::array<const char*, 30> kHeads = {
      "FN",        "N",     "ADR",        "ORG",     "NOTE",     "TEL",        "EMAIL", "BDAY",
      "REV",       "URL",   "PHOTO",      "VERSION", "NICKNAME", "X-FOO",      "GEO",   "TZ",
      "item1.TEL", "LABEL", "CATEGORIES", "GENDER",  "KEY",      "RELATED",    "IMPP",  "UID",
      "X-ABDATE",  "LANG",  "MEMBER",     "SOUND",   "TITLE",    "ANNIVERSARY"};
  static constexpr std::array<const char*, 12> kParameters = {
      ";TYPE=HOME",  ";TYPE=work",     ";HOME",      ";X-A=b",
      ";ENCODING=b", ";BASE64",        ";VALUE=uri", ";TYPE=\"a,b\"",
      ";PREF=1",     ";CHARSET=UTF-8", ";TYPE=pref", ";ENCODING=QUOTED-PRINTABLE"};
  static constexpr std::array<const char*, 24> kPieces = {"a",
                                                          "Zoe",
                                                          " ",
                                                          ";",
                                                          ",",
                                                          "\\n",
                                                          "\\,",
                                                          "\\;",
                                                          "\\\\",
                                                          "1990",
                                                          "-01-02",
                                                          "T03:04:05Z",
                                                          ":",
                                                          "tel:1",
                                                          "\xC3\xA9",
                                                          "\xF0\x9F\x98\x80",
                                                          "\xEF\xBF\xBF",
                                                          "\x01",
                                                          "\t",
                                                          "&#65;",
                                                          "\"",
                                                          "https://example.com/",
                                                          "=3D",
                                                          "\x7F"};
  int ordinary = 0;
  for (int round = 0; round < 30000; ++round) {
    std::string line = random.oneOf(kHeads);
    for (std::size_t i = random.below(3); i > 0; --i) {
      line += random.oneOf(kParameters);
    }
    line += ':';
    for (std::size_t i = random.below(round % 10 == 0 ? 60 : 6); i > 0; --i) {
      line += random.oneOf(kPieces);
    }
    const auto property = propertyOf(line, 2 + static_cast<int>(random.below(3)));
    if (property == nullptr) {
      continue;
    }
    for (const VersionCode syntax : {2, 3, 4}) {
      for (const VersionCode stated : {0, 2, 3, 4}) {
        ordinary += check(*property, syntax, stated) ? 1 : 0;
        ASSERT_FALSE(HasFailure()) << line << ' ' << syntax << ' ' << stated;
      }
    }
  }
  EXPECT_GT(ordinary, 50000);
}

} // namespace
} // namespace cardwright
