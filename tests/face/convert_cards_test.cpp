#include "cardwright/face.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright {
namespace {

VCardList read(const std::string& lines) {
  ReadOptions options;
  options.clean = false;
  return readCards("BEGIN:VCARD\r\n" + lines + "END:VCARD\r\n", nullptr, options);
}

/// The lines of a converted card but VERSION, FN and N.
std::string converted(const std::string& lines, VersionCode version,
                      ConversionReport* report = nullptr) {
  const std::string text = writeCards(convertCards(read(lines), version, report));
  std::string body;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find('\n', at) + 1;
    const std::string line = text.substr(at, end - at);
    const bool isFrame = line.starts_with("BEGIN:") || line.starts_with("END:") ||
                         line.starts_with("VERSION:") || line == "FN:x\r\n" ||
                         line == "N:x;;;;\r\n" || line == "\r\n";
    body += isFrame ? "" : line;
    at = end;
  }
  return body;
}

std::string card(VersionCode version, const std::string& lines) {
  return "VERSION:" + std::to_string(version) + (version == 2 ? ".1" : ".0") +
         "\r\nFN:x\r\nN:x;;;;\r\n" + lines + "\r\n";
}

struct Row {
  VersionCode from;
  const char* lines;
  VersionCode to;
  const char* converted;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.from << " to " << row.to << ": " << row.lines;
}

/// Rows whose converted form gives the lines themselves on the way back.
class ThereAndBack : public testing::TestWithParam<Row> {};

TEST_P(ThereAndBack, convertsBothWays) {
  const auto& [from, lines, to, expected] = GetParam();
  const std::string there = expected + std::string("\r\n");
  EXPECT_EQ(converted(card(from, lines), to), there);
  EXPECT_EQ(converted(card(to, expected), from), lines + std::string("\r\n"));
}

const Row kBothWays[] = {
    {3, "NOTE:a", 4, "NOTE:a"},
    // Media
    {3, "PHOTO;ENCODING=B;TYPE=JPEG:/9j/", 4, "PHOTO:data:image/jpeg;base64,/9j/"},
    {3, "SOUND;ENCODING=B;TYPE=WAVE:AAAA", 4, "SOUND:data:audio/wav;base64,AAAA"},
    {3, "KEY;ENCODING=B:AAAA", 4, "KEY:data:application/octet-stream;base64,AAAA"},
    {3, "PHOTO;VALUE=URI;TYPE=PNG:http://a/b", 4, "PHOTO;MEDIATYPE=image/png:http://a/b"},
    {3, "PHOTO;ENCODING=B:AAA", 4, "PHOTO;VALUE=TEXT;X-ENCODING=B:AAA"},
    {4, "PHOTO:data:image/avif;base64,AAAA", 3, "PHOTO;ENCODING=B;X-DATA-TYPE=image/avif:AAAA"},
    {4, "PHOTO:data:;base64,AAAA", 3, "PHOTO;ENCODING=B;X-DATA-TYPE=none:AAAA"},
    {4, "PHOTO;MEDIATYPE=image/avif:data:image/png;base64,AAAA", 3,
     "PHOTO;ENCODING=B;TYPE=PNG;X-MEDIATYPE=image/avif:AAAA"},
    {4, "PHOTO:data:image/png;charset=utf-8;base64,AAAA", 3,
     "PHOTO;ENCODING=B;TYPE=PNG;X-DATA-TYPE=\"image/png;charset=utf-8\":AAAA"},
    {4, "PHOTO;MEDIATYPE=image/avif:http://a", 3,
     "PHOTO;VALUE=URI;X-MEDIATYPE=image/avif:http://a"},
    {4, "PHOTO:data:image/jpeg;base64,%41", 3, "PHOTO;VALUE=URI:data:image/jpeg;base64,%41"},
    {2, "PHOTO;ENCODING=BASE64;JPEG:/9j/", 3, "PHOTO;ENCODING=B;TYPE=JPEG:/9j/"},
    {2, "PHOTO;VALUE=URL:http://a", 3, "PHOTO;VALUE=URI:http://a"},
    // Preference and types
    {3, "TEL;TYPE=HOME;TYPE=pref:1", 4, "TEL;TYPE=HOME;PREF=1:1"},
    {4, "TEL;PREF=2:1", 3, "TEL;X-PREF=2:1"},
    {3, "ADR;TYPE=HOME;TYPE=DOM:;;a;;;;", 4, "ADR;TYPE=HOME;X-TYPE=DOM:;;a;;;;"},
    {4, "TEL;TYPE=TEXTPHONE:1", 3, "TEL;X-TYPE=TEXTPHONE:1"},
    // Telephones, positions, zones
    {4, "TEL;VALUE=URI:tel:+1-555;ext=5", 3, "TEL;X-VALUE=URI:+1-555\\;ext=5"},
    {4, "TEL;VALUE=URI:sip:a@b", 3, "TEL;VALUE=URI:sip:a@b"},
    {3, "GEO:1.500000;-2.250000", 4, "GEO:geo:1.5,-2.25"},
    {3, "GEO:here", 4, "GEO;VALUE=TEXT:here"},
    {4, "GEO:geo:37.38,-122.082930", 3,
     "GEO;X-URI=\"geo:37.38,-122.082930\":37.380000;-122.082930"},
    {4, "GEO:geo:1,2,3;u=4", 3, "GEO;X-URI=\"geo:1,2,3;u=4\":1.000000;2.000000"},
    {4, "GEO:http://a", 3, "X-GEO;VALUE=URI:http://a"},
    {3, "TZ:+05:30", 4, "TZ;VALUE=UTC-OFFSET:+0530"},
    {4, "TZ:Europe/Berlin", 3, "TZ;VALUE=TEXT:Europe/Berlin"},
    // Kinds and members
    {3, "X-ADDRESSBOOKSERVER-KIND:group", 4, "KIND:group"},
    {3, "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1", 4, "MEMBER:urn:uuid:1"},
    {4, "MEMBER:tel:+1", 3, "X-MEMBER;VALUE=URI:tel:+1"},
    // Labels and sorting
    {3, "ADR;TYPE=HOME:;;a;;;;\r\nLABEL;TYPE=HOME:a\\nb", 4, "ADR;TYPE=HOME;LABEL=a^nb:;;a;;;;"},
    {3, "LABEL:a", 4, "X-LABEL:a"},
    {4, "ADR:;;a;;;;\r\nADR;LABEL=b:;;b;;;;", 3, "ADR:;;a;;;;\r\nADR;X-LABEL=b:;;b;;;;"},
    {3, "g.SORT-STRING:a", 4, "g.X-SORT-STRING:a"},
    // People
    {3, "X-GENDER:Male", 4, "GENDER:M"},
    {4, "GENDER:O;it", 3, "X-GENDER:O\\;it"},
    {3, "X-GENDER:rather not", 4, "X-GENDER:rather not"},
    {3, "X-SPOUSE:Ada", 4, "RELATED;VALUE=TEXT;TYPE=SPOUSE:Ada"},
    {4, "RELATED;TYPE=FRIEND:urn:uuid:1", 3, "X-RELATED;VALUE=URI;X-TYPE=FRIEND:urn:uuid:1"},
    {3, "X-SPOUSE;TYPE=pref:Ada", 4, "RELATED;VALUE=TEXT;TYPE=SPOUSE;PREF=1:Ada"},
    {3, "AGENT;VALUE=URI:http://a", 4, "RELATED;TYPE=AGENT:http://a"},
    {3, "AGENT;VALUE=URI;TYPE=pref:http://a", 4, "RELATED;TYPE=AGENT;PREF=1:http://a"},
    {3, "AGENT:a", 4, "AGENT:a"},
    {3, "X-AIM;TYPE=HOME:a b", 4, "IMPP;TYPE=HOME;X-FORMERLY=X-AIM;X-SERVICE-TYPE=AIM:aim:a%20b"},
    {3, "IMPP;X-SERVICE-TYPE=AIM:aim:a", 4, "IMPP;X-SERVICE-TYPE=AIM:aim:a"},
    // Dates
    {3, "BDAY:2024-02-29", 4, "BDAY:20240229"},
    {3, "BDAY;X-APPLE-OMIT-YEAR=1604:1604-02-29", 4, "BDAY:--0229"},
    {3, "BDAY;X-APPLE-OMIT-YEAR=1600:1600-02-28", 4, "BDAY;X-APPLE-OMIT-YEAR=1600:--0228"},
    {3, "BDAY:1963-09", 4, "BDAY;X-FORMERLY=BDAY:1963-09"},
    {3, "X-ANNIVERSARY:2024-02-03", 4, "ANNIVERSARY:20240203"},
    {4, "ANNIVERSARY:--0203", 3, "X-ANNIVERSARY;X-APPLE-OMIT-YEAR=1604:1604-02-03"},
    {3, "X-ANNIVERSARY:1990", 4, "ANNIVERSARY;X-FORMERLY=X-ANNIVERSARY:1990"},
    {4, "ANNIVERSARY:20240203T100000Z", 3, "X-ANNIVERSARY;VALUE=DATE-TIME:2024-02-03T10:00:00Z"},
    {4, "ANNIVERSARY:1990", 3, "X-ANNIVERSARY;VALUE=TEXT;X-VALUE=DATE-AND-OR-TIME:1990"},
    {4, "BDAY:1990", 3, "X-BDAY;X-VALUE=DATE-AND-OR-TIME:1990"},
    {4, "BDAY:someday", 3, "BDAY:someday"},
    {4, "DEATHDATE:20240203", 3, "X-DEATHDATE;VALUE=DATE;X-VALUE=DATE-AND-OR-TIME:2024-02-03"},
    {4, "X-A;VALUE=DATE-AND-OR-TIME:20240203T100000", 3,
     "X-A;VALUE=DATE-TIME;X-VALUE=DATE-AND-OR-TIME:2024-02-03T10:00:00"},
    {4, "X-A;VALUE=DATE-AND-OR-TIME:1990", 3, "X-A;X-VALUE=DATE-AND-OR-TIME:1990"},
    {3, "REV:2024-02-03T10:00:00Z", 4, "REV:20240203T100000Z"},
    // The rest
    {3, "CLASS:PUBLIC", 4, "X-CLASS:PUBLIC"},
    {4, "LANG;PREF=1:fr", 3, "X-LANG;TYPE=pref:fr"},
    {4, "X-A;VALUE=INTEGER:5", 3, "X-A;X-VALUE=INTEGER:5"},
    {4, "NOTE;ALTID=1;PID=1.1:a", 3, "NOTE;X-ALTID=1;X-PID=1.1:a"},
    {3, "NOTE;CONTEXT=a:a", 4, "NOTE;X-CONTEXT=a:a"},
    {3, "NICKNAME:a,b\\,c", 2, "X-NICKNAME:a\\,b\\\\\\,c"},
    {4, "KIND:group", 2, "X-ADDRESSBOOKSERVER-KIND:group"},
    {4, "FBURL:http://a", 2, "X-FBURL;VALUE=URL:http://a"},
};

INSTANTIATE_TEST_SUITE_P(ConvertCards, ThereAndBack, testing::ValuesIn(kBothWays));

class OneWay : public testing::TestWithParam<Row> {};

TEST_P(OneWay, converts) {
  const auto& [from, lines, to, expected] = GetParam();
  EXPECT_EQ(converted(card(from, lines), to), expected + std::string("\r\n"));
}

const Row kOneWay[] = {
    {3, "PHOTO;ENCODING=B;TYPE=JPEG:R0lG\\nODlh", 4, "PHOTO:data:image/gif;base64,R0lGODlh"},
    {3, "PHOTO;ENCODING=B;TYPE=image/png:AAAA", 4, "PHOTO:data:image/png;base64,AAAA"},
    {3, "X-GENDER:F", 4, "GENDER:F"},
    {4, "ADR;LABEL=\"a\\nb\":;;a;;;;", 3, "ADR:;;a;;;;\r\nLABEL:a\\nb"},
    {4, "BDAY;X-APPLE-OMIT-YEAR=1900:--0229", 3, "BDAY;X-APPLE-OMIT-YEAR=1604:1604-02-29"},
    {3, "PHOTO;ENCODING=b:/9j/", 2, "PHOTO;ENCODING=BASE64:/9j/"},
    {3, "EMAIL;TYPE=INTERNET;TYPE=WORK:a", 4, "EMAIL;TYPE=WORK:a"},
    {3, "TZ:Europe/Berlin", 4, "TZ:Europe/Berlin"},
    {2, "NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=ISO-8859-1:=E9", 4, "NOTE:\xC3\xA9"},
    {3, "X-SPOUSE;TYPE=HOME:Ada", 4, "X-SPOUSE;TYPE=HOME:Ada"},
    {3, "BDAY;VALUE=date:2024-02-03", 4, "BDAY:20240203"},
    {3, "LABEL:a\r\nADR:;;a;;;;\r\nLABEL:b", 4, "ADR;LABEL=a:;;a;;;;\r\nX-LABEL:b"},
    {3, "TEL;VALUE=uri:tel:+1", 2, "TEL;VALUE=URL:tel:+1"},
};

INSTANTIATE_TEST_SUITE_P(ConvertCards, OneWay, testing::ValuesIn(kOneWay));

TEST(ConvertCards, statesTheVersionOnce) {
  ConversionReport report;
  const auto cards = convertCards(read("FN:x\r\nVERSION:3.0\r\nVERSION:4.0\r\n"), 4, &report);
  EXPECT_EQ(writeCards(cards), "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:x\r\nEND:VCARD\r\n");
  EXPECT_EQ(report.properties, 3U);
  EXPECT_EQ(report.converted, 2U);
  EXPECT_EQ(report.dropped, 1U);
}

TEST(ConvertCards, makesNamesThatTheVersionAsksFor) {
  const std::pair<const char*, const char*> rows[] = {
      {"N:Doe;Jane;A.,B.;Dr.;\r\n", "Dr. Jane A. B. Doe"},
      {"N:;;;;\r\nNICKNAME:Jay,Dee\r\n", "Jay"},
      {"ORG:Works;Sales\r\n", "Works\\, Sales"},
      {"EMAIL:a@b\r\n", "a@b"},
      {"VERSION:2.1\r\nX-NICKNAME:Jay\\,Dee\r\n", "Jay"},
  };
  for (const auto& [lines, name] : rows) {
    const std::string text = writeCards(convertCards(read(lines), 4));
    EXPECT_NE(text.find("\r\nFN:" + std::string(name)), std::string::npos) << text;
  }
  EXPECT_EQ(writeCards(convertCards(read("VERSION:4.0\r\nFN:Jane Doe\r\n"), 3)),
            "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Jane Doe\r\nN:Jane Doe;;;;\r\nEND:VCARD\r\n");
  EXPECT_EQ(writeCards(convertCards(read("VERSION:3.0\r\n"), 4)),
            "BEGIN:VCARD\r\nVERSION:4.0\r\nEND:VCARD\r\n");
}

TEST(ConvertCards, sortsByTheNameItIsTold) {
  const std::string lines = "VERSION:3.0\r\nFN:x\r\nN:d'A;;;;\r\nSORT-STRING:A\r\n";
  const auto up = convertCards(read(lines), 4);
  EXPECT_EQ(writeCards(up),
            "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:x\r\nN;SORT-AS=A:d'A;;;;\r\nEND:VCARD\r\n");
  EXPECT_EQ(writeCards(convertCards(up, 3)), "BEGIN:VCARD\r\n" + lines + "END:VCARD\r\n");
}

TEST(ConvertCards, reportsWhatItDid) {
  ConversionReport report;
  static_cast<void>(convertCards(
      {nullptr,
       read(card(3, "g.CLASS:PUBLIC\r\nPHOTO;ENCODING=B:AAA\r\nEMAIL;TYPE=INTERNET:a"))[0]},
      4, &report));
  EXPECT_EQ(report.cards, 1U);
  EXPECT_EQ(report.properties, 6U);
  EXPECT_EQ(report.converted, 6U);
  std::vector<std::string> told;
  for (const ConversionChange& change : report.changes) {
    told.push_back(change.property + "|" + change.part + "|" + change.target + "|" + change.text +
                   "|" + std::string(conversionKindText(change.kind)));
  }
  EXPECT_EQ(told, (std::vector<std::string>{
                      "EMAIL|TYPE||INTERNET|dropped", "g.CLASS||X-CLASS|CLASS|parked",
                      "PHOTO||PHOTO|AAA|broken", "PHOTO|ENCODING|X-ENCODING|B|parked",
                      "VERSION||4.0|3.0|re-encoded"}));
}

TEST(ConvertCards, changesItsCardsInNoWay) {
  const auto cards = read(card(3, "LABEL:a\r\nADR:;;a;;;;\r\nTEL;TYPE=pref:1"));
  const Text before = cards[0]->description();
  static_cast<void>(convertCards(cards, 4));
  static_cast<void>(convertCards(cards, 2));
  EXPECT_EQ(cards[0]->description(), before);
}

TEST(ConvertCards, namesEveryKind) {
  for (int kind = 1; kind <= 7; ++kind) {
    EXPECT_NE(conversionKindText(static_cast<ConversionKind>(kind)), "unknown");
  }
}

} // namespace
} // namespace cardwright
