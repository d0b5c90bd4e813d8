#include "cardwright/face.h"
#include "cardwright/text_scanner.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard_custom_value.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_gender_value.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_multi_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_uri_value.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright {
namespace {

using Kind = WriteChangeKind;
using Kinds = std::vector<WriteChangeKind>;

VCardList read(const std::string& lines) {
  ReadOptions options;
  options.clean = false;
  return readCards("BEGIN:VCARD\r\n" + lines + "END:VCARD\r\n", nullptr, options);
}

/// The lines between VERSION and END.
std::string body(const std::string& written) {
  const std::size_t version = written.find("VERSION:");
  const std::size_t begin = version == std::string::npos ? 13 : written.find('\n', version) + 1;
  return written.substr(begin, written.rfind("END:VCARD") - begin);
}

std::string rewritten(const std::string& lines, WriteReport* report = nullptr,
                      VersionCode version = 0) {
  return body(writeCards(read(lines), report, {version}));
}

Kinds kindsOf(const WriteReport& report) {
  Kinds kinds;
  for (const WriteChange& change : report.changes) {
    kinds.push_back(change.kind);
  }
  return kinds;
}

/// A card of version 3.0 with one property made by hand.
VCardList cardWith(const std::shared_ptr<VCardProperty>& property, VersionCode version = 3) {
  auto card = std::make_shared<VCard>();
  card->addProperty(VCardProperty::propertyForVersion(version));
  card->addProperty(property);
  return {card};
}

std::shared_ptr<VCardProperty> withParameter(TextView name, TextView value) {
  auto property = VCardProperty::propertyWithName(u"NOTE", TextView(u"a"));
  auto parameter = std::make_shared<VCardParameter>();
  parameter->setName(name);
  parameter->addValues({Text(value)});
  property->addParameter(parameter);
  return property;
}

struct Row {
  const char* lines;
  const char* written;
  Kinds changes;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.lines;
}

class SafeLines : public testing::TestWithParam<Row> {};

TEST_P(SafeLines, areWrittenSoThatTheyAreReadAgain) {
  WriteReport report;
  EXPECT_EQ(rewritten(GetParam().lines, &report), GetParam().written);
  EXPECT_EQ(kindsOf(report), GetParam().changes);
}

const Row kRows[] = {
    {"NOTE:plain\r\n", "NOTE:plain\r\n", {}},
    // Names
    {"\"X;A\":a\r\n", "XA:a\r\n", {Kind::nameCleaned}},
    {"X&#10;A:a\r\n", "XA:a\r\n", {Kind::nameCleaned}},
    {"\" X-A \":a\r\n", "X-A:a\r\n", {Kind::nameCleaned}},
    {"\"g h;i.X-A\":a\r\n", "g hi.X-A:a\r\n", {Kind::groupCleaned}},
    {"\";.X-A.B\":a\r\n", "X-AB:a\r\n", {Kind::groupCleaned, Kind::nameCleaned}},
    {".X-A:a\r\n", ".X-A:a\r\n", {}},
    {"\";\":a\r\n", "", {Kind::namelessLeftOut}},
    {"X&&#35;65:a\r\n", "X#65:a\r\n", {Kind::nameCleaned}},
    {"NOTE;\"X=;B\"=c:a\r\n", "NOTE;XB=c:a\r\n", {Kind::parameterNameCleaned}},
    // Frames
    {"BEGIN:vcard\r\n", "", {Kind::frameLeftOut}},
    {"END: VCARD\r\nX-A:1\r\n", "X-A:1\r\n", {Kind::frameLeftOut}},
    {"g.END:VCARD\r\n", "", {Kind::frameLeftOut}},
    {"END:VCARDS\r\n", "END:VCARDS\r\n", {}},
    // Parameters
    {"NOTE;X-A=a&#13;&#10;b&#13;c:a\r\n", "NOTE;X-A=a^nb^nc:a\r\n", {Kind::parameterCleaned}},
    {"NOTE;X-A=\"  \":a\r\n", "NOTE:a\r\n", {Kind::parameterLeftOut}},
    {"NOTE;X-A=^^;X-B=\"  b\":a\r\n", "NOTE;X-A=^^;X-B=\"  b\":a\r\n", {}},
    {"NOTE;X-A=\"&#38;#58\";X-B=c:a\r\n", "NOTE;X-A=\"&#38;#58\";X-B=c:a\r\n", {}},
    {"VERSION:2.1\r\nTEL;TYPE=A=B;HOME:1\r\n", "TEL;TYPE=A=B;HOME:1\r\n", {}},
    {"VERSION:2.1\r\nPHOTO;TYPE=BASE64:AA\r\n", "PHOTO;TYPE=BASE64:AA\r\n", {}},
    {"TEL;TYPE=home,pref:1\r\n", "TEL;TYPE=HOME;TYPE=pref:1\r\n", {}},
    {"NOTE;VALUE=ur\xC4\xB1:a\r\n", "NOTE;VALUE=ur\xC4\xB1:a\r\n", {}},
    {"NOTE;X-A=\"ENCODING=QUOTED-PRINTABLE\":a&#61;\r\n",
     "NOTE;X-A=ENCODING=QUOTED-PRINTABLE:a=\\\r\n",
     {}},
    // Encodings
    {"NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=ISO-8859-1:Caf=E9\r\n",
     "NOTE:Caf\xC3\xA9\r\n",
     {Kind::encodingLeftOut, Kind::encodingLeftOut}},
    {"NOTE;CHARSET=utf-8;ENCODING=8bit:a\r\n", "NOTE;ENCODING=8BIT;CHARSET=utf-8:a\r\n", {}},
    {"VERSION:2.1\r\nNOTE;X-A=b;ENCODING=QUOTED-PRINTABLE:=41\r\n",
     "NOTE;CHARSET=UTF-8;X-A=b:A\r\n",
     {Kind::encodingLeftOut}},
    {"NOTE;CHARSET=HZ-GB-2312:~~~~\r\n", "NOTE:~~\r\n", {Kind::encodingLeftOut}},
    {"VERSION:2.1\r\nPHOTO;ENCODING=BASE64:AA==\r\n", "PHOTO;ENCODING=BASE64:AA==\r\n\r\n", {}},
    // Labels
    {"g.TEL:1\r\ng.EMAIL:a\r\ng.X-ABLabel:b\r\nG.X-ABLabel:b\r\ng.X-ABLabel:c\r\n",
     "g.EMAIL:a\r\ng.X-ABLABEL:b\r\ng.X-ABLABEL:c\r\ng.TEL:1\r\n",
     {Kind::repeatLeftOut}},
    {"X-ABLabel:a\r\nX-ABLabel:a\r\ng.X-ABLabel:b\r\nh.X-ABADR:de\r\nh.TEL:1\r\n",
     "h.TEL:1\r\nh.X-ABADR:de\r\nX-ABLABEL:a\r\nX-ABLABEL:a\r\ng.X-ABLABEL:b\r\n",
     {}},
    {"h.ADR:;;a;;;;\r\nh.ADR:;;b;;;;\r\nh.X-ABADR:de\r\nh.X-ABLabel:l\r\n",
     "h.ADR:;;a;;;;\r\nh.X-ABLABEL:l\r\nh.X-ABADR:de\r\nh.ADR:;;b;;;;\r\n",
     {}},
    {"PHOTO:\r\n", "PHOTO:\r\n", {}},
    // Values
    {"NOTE:\\ a\r\n", "NOTE:\\ a\r\n", {}},
    {"NICKNAME:a\\ ,\\ b\\ \\ ,c\r\n", "NICKNAME:a,\\ b \\ ,c\r\n", {}},
    {"NOTE:a\x01"
     "b\xEF\xBF\xBD"
     "c\r\n",
     "NOTE:ab\xEF\xBF\xBD"
     "c\r\n",
     {Kind::valueCleaned}},
    {"URL:http://a/?b=c,d;e\r\n", "URL:http://a/?b=c,d;e\r\n", {}},
    {"URL:a\\\\b\\,c\r\n", "URL:a\\\\b\\,c\r\n", {}},
    // Texts that were not understood
    {"BDAY:someday\r\n", "BDAY:someday\r\n", {}},
    {"BDAY:2023-02-30\r\n", "BDAY:2023-02-30\r\n", {}},
    {"BDAY:20240105\r\n", "BDAY:2024-01-05\r\n", {}},
    {"BDAY:2024-01-31\r\n", "BDAY:2024-01-31\r\n", {}},
    {"REV:2024-01-01T10:00:00.5Z\r\n", "REV:2024-01-01T10:00:00.5Z\r\n", {}},
    {"REV:2024-01-01\r\n", "REV:2024-01-01\r\n", {}},
    {"REV:2024-01-01T10:00:00+00:00\r\n", "REV:2024-01-01T10:00:00+00:00\r\n", {}},
    {"TZ:Europe/Berlin\r\n", "TZ:Europe/Berlin\r\n", {}},
    {"TZ:+0530\r\n", "TZ:+05:30\r\n", {}},
    {"GEO:1.5;2.25\r\n", "GEO:1.500000;2.250000\r\n", {}},
    {"GEO:1.23456789;1e999\r\n", "GEO:1.23456789;1e999\r\n", {}},
    {"GEO:geo:1,2\r\n", "GEO:geo:1,2\r\n", {}},
    {"BDAY:a&#10;b\r\n", "BDAY:a?b\r\n", {Kind::valueCleaned}},
    {"GEO:1.5;2.5\r\nVERSION:4.0\r\n",
     "GEO;VALUE=GEO3.0:1.500000;2.500000\r\n",
     {Kind::valueStated}},
    {"VERSION:4.0\r\nANNIVERSARY:--0230\r\nTZ;VALUE=utc-offset:+123:00\r\n",
     "ANNIVERSARY:--0230\r\nTZ;VALUE=UTC-OFFSET:+123:00\r\n",
     {}},
};

INSTANTIATE_TEST_SUITE_P(WriteCards, SafeLines, testing::ValuesIn(kRows));

TEST(WriteCards, writesNothingForNoCards) {
  WriteReport report;
  EXPECT_EQ(writeCards({}, &report), "");
  EXPECT_EQ(writeCards({nullptr}, &report), "");
  EXPECT_EQ(report.cards, 0U);
}

TEST(WriteCards, countsWhatItWritesAndDrops) {
  const auto cards = read("FN:a\r\nBEGIN:VCARD\r\ng.X-ABLabel:b\r\ng.X-ABLabel:b\r\n");
  WriteReport report;
  static_cast<void>(writeCards({cards[0], nullptr, cards[0]}, &report));
  EXPECT_EQ(report.cards, 2U);
  EXPECT_EQ(report.properties, 10U);
  EXPECT_EQ(report.dropped, 4U);
  ASSERT_EQ(report.changes.size(), 4U);
  EXPECT_EQ(report.changes[2].card, 1U);
  EXPECT_EQ(report.changes[3].property, "g.X-ABLABEL");
  EXPECT_EQ(report.changes[3].text, "X-ABLABEL:b");
}

TEST(WriteCards, writesTheSyntaxOfTheVersionItIsTold) {
  const std::string lines = "VERSION:3.0\r\nTEL;TYPE=HOME:1\r\nFN:Ada\\; B\r\n";
  EXPECT_EQ(rewritten(lines, nullptr, 2), "FN:Ada; B\r\nTEL;HOME:1\r\n");
  EXPECT_EQ(rewritten(lines, nullptr, 3), "FN:Ada\\; B\r\nTEL;TYPE=HOME:1\r\n");
}

TEST(WriteCards, statesTheTypeOfAValueThatTheNameDoesNotImply) {
  EXPECT_EQ(body(writeCards(cardWith(VCardProperty::propertyWithName(
                u"PHOTO", VCardURIValue::valueWithText(u"http://a/b,c"))))),
            "PHOTO;VALUE=URI:http://a/b,c\r\n");
  auto wrong = VCardProperty::propertyWithName(u"BDAY", TextView(u"spring"));
  wrong->addParameter(VCardParameter::parameterWithName(u"VALUE", u"date"));
  EXPECT_EQ(body(writeCards(cardWith(wrong))), "BDAY;VALUE=TEXT:spring\r\n");
}

TEST(WriteCards, keepsATextInOnePieceWhereReadersTakeValuesApart) {
  EXPECT_EQ(
      body(writeCards(cardWith(VCardProperty::propertyWithName(u"ORG", TextView(u"A; B")), 4))),
      "ORG:A\\; B\r\n");
  EXPECT_EQ(
      body(writeCards(cardWith(VCardProperty::propertyWithName(u"NICKNAME", TextView(u" a, "))))),
      "NICKNAME:\\ a\\, \\ \r\n");
}

TEST(WriteCards, forgetsTheSourceOfAValueThatWasSet) {
  const auto cards = read("BDAY:someday\r\nGEO:here;there\r\n");
  const auto birthday = std::dynamic_pointer_cast<VCardDateTimeValue>(
      cards[0]->propertiesWithName(u"BDAY")->front()->value());
  DateComponents date;
  date.year = 2024;
  birthday->setComps(date);
  const auto position = std::dynamic_pointer_cast<VCardGeoValue>(
      cards[0]->propertiesWithName(u"GEO")->front()->value());
  position->setLatitude(1);
  EXPECT_EQ(body(writeCards(cards)), "BDAY:2024\r\nGEO:1.000000;0.000000\r\n");
}

TEST(WriteCards, leavesOutAVersionThatIsNoText) {
  auto card = std::make_shared<VCard>();
  card->addProperty(VCardProperty::propertyWithName(
      u"VERSION", std::shared_ptr<VCardValue>(std::make_shared<VCardNValue>())));
  WriteReport report;
  EXPECT_EQ(writeCards({card}, &report), "BEGIN:VCARD\r\nEND:VCARD\r\n");
  EXPECT_EQ(kindsOf(report), Kinds{Kind::versionLeftOut});
}

TEST(WriteCards, keepsSexIdentityLabelAndValueApart) {
  auto gender = std::make_shared<VCardGenderValue>();
  gender->setSex(u"M;x");
  gender->setIdentity(u"a;b");
  EXPECT_EQ(body(writeCards(cardWith(
                VCardProperty::propertyWithName(u"GENDER", std::shared_ptr<VCardValue>(gender))))),
            "GENDER:Mx;a\\;b\r\n");
  auto labelled = std::make_shared<VCardCustomValue>();
  labelled->setLabel(u"a-=+=-b-=+=");
  labelled->setValue(u"c-=+=-d");
  EXPECT_EQ(body(writeCards(cardWith(VCardProperty::propertyWithName(
                u"X-CUSTOM", std::shared_ptr<VCardValue>(labelled))))),
            "X-CUSTOM:ab-=+-=+=-cd\r\n");
}

TEST(WriteCards, putsCommasBetweenAllElementsOfAList) {
  auto list = VCardMultiValue::valueWithType(u"text");
  const auto element = VCardTextValue::valueWithText(u"a");
  list->setValues(VCardValueList{element, nullptr, element});
  EXPECT_EQ(body(writeCards(cardWith(VCardProperty::propertyWithName(
                u"CATEGORIES", std::shared_ptr<VCardValue>(list))))),
            "CATEGORIES:a,,a\r\n");
}

TEST(WriteCards, letsNoParameterBecomeStructure) {
  const std::pair<const char16_t*, const char*> rows[] = {
      {u"a\r\nEND:VCARD", "NOTE;X-A=\"a^nEND:VCARD\":a\r\n"},
      {u"a\"b", "NOTE;X-A=a^'b:a\r\n"},
      {u"&#34;:x", "NOTE;X-A=\"&#38;#34;:x\":a\r\n"},
      {u"&#5", "NOTE;X-A=\"&#38;#5\":a\r\n"},
      {u"\t", "NOTE:a\r\n"},
      {u"\xD800", "NOTE:a\r\n"},
  };
  for (const auto& [value, line] : rows) {
    EXPECT_EQ(body(writeCards(cardWith(withParameter(u"X-A", value)))), line);
  }
  EXPECT_EQ(body(writeCards(cardWith(withParameter(u"EN=CODING", u"quoted-printable")))),
            "NOTE:a\r\n");
}

TEST(WriteCards, changesItsCardsInNoWay) {
  const auto cards = read("\"X;A\";X-B=a&#13;b:c\r\nBDAY:x\r\n");
  const Text before = cards[0]->description();
  static_cast<void>(writeCards(cards));
  EXPECT_EQ(cards[0]->description(), before);
}

TEST(WriteCards, namesEveryChange) {
  for (int kind = 1; kind <= 12; ++kind) {
    EXPECT_NE(writeChangeText(static_cast<Kind>(kind)), "unknown");
  }
}

} // namespace
} // namespace cardwright
