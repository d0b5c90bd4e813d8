#pragma once

#include "cardwright/text.h"
#include "support/random_source.h"

#include <array>

namespace cardwright {

/// Makes cards of what the rules of reading and writing stumble over: quotes, escapes, blanks,
/// references, charsets, dates without sense, labels without a group and groups without a label.
class StrangeCards {
 public:
  explicit StrangeCards(std::uint64_t seed) : m_random(seed) {}

  Text card() {
    Text text = u"BEGIN:VCARD\r\n";
    const bool isVersionFirst = !m_random.oneIn(4);
    if (isVersionFirst) {
      appendVersion(text);
    }
    for (std::size_t lines = m_random.below(8); lines > 0; --lines) {
      appendLine(text);
    }
    if (!isVersionFirst && !m_random.oneIn(3)) {
      appendVersion(text);
      appendLine(text);
    }
    return text + u"END:VCARD\r\n";
  }

 private:
  void appendVersion(Text& text) {
    text += u"VERSION:";
    text += m_random.oneIn(20) ? m_random.oneOf(kStrangeVersions)
                               : m_random.oneOf(std::array<TextView, 3>{u"2.1", u"3.0", u"4.0"});
    text += u"\r\n";
  }

  void appendLine(Text& text) {
    if (m_random.oneIn(3)) {
      text += m_random.oneOf(kGroups);
    }
    text += m_random.oneOf(kNames);
    for (std::size_t parameters = m_random.below(4); parameters > 0; --parameters) {
      text += u';';
      text += m_random.oneOf(kParameters);
      if (m_random.oneIn(3)) {
        text += m_random.oneOf(kParameterEnds);
      }
    }
    text += u':';
    for (std::size_t pieces = m_random.below(6); pieces > 0; --pieces) {
      text += m_random.oneOf(kPieces);
    }
    if (m_random.oneIn(12)) {
      text.append(m_random.below(160), u'x');
      text += m_random.oneOf(kPieces);
    }
    text += u"\r\n";
  }

  static constexpr std::array<TextView, 9> kStrangeVersions = {u"1.0",
                                                               u"5.0",
                                                               u"",
                                                               u"x",
                                                               u" 4.0",
                                                               u"\u0001"
                                                               u"4.0",
                                                               u"4\u0001.0",
                                                               u"-3",
                                                               u"0.9"};

  static constexpr std::array<TextView, 8> kGroups = {
      u"item1.", u"ITEM1.", u"item2.", u".", u"a.b.", u"stra\u00DFe.", u"\"g h;i.\"", u"\"a."};

  static constexpr std::array<TextView, 42> kNames = {u"FN",
                                                      u"N",
                                                      u"ADR",
                                                      u"adr",
                                                      u"ORG",
                                                      u"TEL",
                                                      u"EMAIL",
                                                      u"NOTE",
                                                      u"NOTE",
                                                      u"PHOTO",
                                                      u"photo",
                                                      u"LOGO",
                                                      u"KEY",
                                                      u"GEO",
                                                      u"TZ",
                                                      u"BDAY",
                                                      u"BDAY",
                                                      u"REV",
                                                      u"X-ABDATE",
                                                      u"GENDER",
                                                      u"NICKNAME",
                                                      u"CATEGORIES",
                                                      u"X-CUSTOM",
                                                      u"X-ABLabel",
                                                      u"X-ABLabel",
                                                      u"X-ABADR",
                                                      u"URL",
                                                      u"KIND",
                                                      u"X-FOO",
                                                      u"stra\u00DFe",
                                                      u"TEL ",
                                                      u"\"TEL\"",
                                                      u"\" X-A\"",
                                                      u"\"X;A\"",
                                                      u"BEGIN",
                                                      u"END",
                                                      u"VERSION",
                                                      u"X-ADDRESSBOOKSERVER-MEMBER",
                                                      u"X-ADDRESSBOOKSERVER-KIND",
                                                      u"X&#10;A",
                                                      u"ANNIVERSARY",
                                                      u"\u00A0UID"};

  static constexpr std::array<TextView, 58> kParameters = {u"HOME",
                                                           u"pref",
                                                           u"Pref",
                                                           u"TYPE=home,work",
                                                           u"TYPE=\"a,b\"",
                                                           u"TYPE=\"a=b\"",
                                                           u"TYPE=\"a=b:c\"",
                                                           u"TYPE=base64",
                                                           u"TYPE=\" x\"",
                                                           u"BASE64",
                                                           u"ENCODING=BASE64",
                                                           u"ENCODING=b",
                                                           u"ENCODING=QUOTED-PRINTABLE",
                                                           u"ENCODING=quoted-printable",
                                                           u"ENCODING=8bit,quoted-printable",
                                                           u"ENCODING=quoted-pr\u0131ntable",
                                                           u"QUOTED-PRINTABLE",
                                                           u"CHARSET=UTF-8",
                                                           u"CHARSET=iso-8859-1",
                                                           u"CHARSET=hz-gb-2312",
                                                           u"CHARSET=utf-16",
                                                           u"CHARSET=shift_jis",
                                                           u"CHARSET=x-none",
                                                           u"VALUE=text",
                                                           u"VALUE=uri",
                                                           u"VALUE=ur\u0131",
                                                           u"VALUE=date",
                                                           u"VALUE=time",
                                                           u"VALUE=date-time",
                                                           u"VALUE=date-and-or-time",
                                                           u"VALUE=timestamp",
                                                           u"VALUE=boolean",
                                                           u"VALUE=utc-offset",
                                                           u"VALUE=Address",
                                                           u"VALUE=N",
                                                           u"VALUE=Org",
                                                           u"VALUE=Gender",
                                                           u"VALUE=Geo3.0",
                                                           u"VALUE=Custom",
                                                           u"VALUE=x-\u00DF",
                                                           u"X-A=b",
                                                           u"X-A=b,c",
                                                           u"X-A=\"a;b:c\"",
                                                           u"X-A=\"  a\"",
                                                           u"X-A=\"  \"",
                                                           u"X-A=^",
                                                           u"X-A=^n^'^^^x",
                                                           u"X-A=\"^'\"",
                                                           u"X-A=a&#13;b",
                                                           u"X-A=a&#10;b",
                                                           u"X-A=\"ENCODING=QUOTED-PRINTABLE\"",
                                                           u"\"X=B\"=c",
                                                           u"\" X-B\"=c",
                                                           u"\"X B\"=c",
                                                           u"X-A=stra\u00DFe",
                                                           u"X-A=\u00A0x",
                                                           u"X-\U0001F600=\xD800",
                                                           u"X-A=\"b\"stray"};

  static constexpr std::array<TextView, 6> kParameterEnds = {u",c",      u",\"d,e\"", u",",
                                                             u",\" f\"", u" ",        u",^"};

  static constexpr std::array<TextView, 86> kPieces = {u"a",
                                                       u"b",
                                                       u" ",
                                                       u"  ",
                                                       u"\t",
                                                       u"\u00A0",
                                                       u",",
                                                       u"\\,",
                                                       u";",
                                                       u"\\;",
                                                       u"\\\\",
                                                       u"\\",
                                                       u"\\n",
                                                       u"\\N",
                                                       u"\\r",
                                                       u"\\r\\n",
                                                       u"\\ ",
                                                       u"\\:",
                                                       u":",
                                                       u"=",
                                                       u"==",
                                                       u"=0D=0A",
                                                       u"=20",
                                                       u"=3B",
                                                       u"=2C",
                                                       u"=C3=A9",
                                                       u"=\r\n",
                                                       u"=3D=\r\nx",
                                                       u"\r\n ",
                                                       u"\r\n  ",
                                                       u"\u0001",
                                                       u"\u000B",
                                                       u"\uFFFD",
                                                       u"\uD7FF",
                                                       u"\u2028",
                                                       u"\u0085",
                                                       u"\xD800",
                                                       u"\xDFFF",
                                                       u"\U0001F600",
                                                       u"\U0010FFFF",
                                                       u"e\u0301",
                                                       u"\u4E2D",
                                                       u"&#65;",
                                                       u"&#38;#65;",
                                                       u"&\\#59;",
                                                       u"&#10;",
                                                       u"&#13;&#10;",
                                                       u"&#59;",
                                                       u"-=+=-",
                                                       u"-=+",
                                                       u"=-",
                                                       u"M",
                                                       u"1.5",
                                                       u"1.5;-2.25",
                                                       u"1e999;-0.0000001",
                                                       u"12,34",
                                                       u"+05:30",
                                                       u"-0530",
                                                       u"+0000",
                                                       u"Z",
                                                       u"+123:00",
                                                       u"+99999999999999999999",
                                                       u"20240229",
                                                       u"2024-02-29",
                                                       u"2024-02-30",
                                                       u"--0412",
                                                       u"--0230",
                                                       u"---31",
                                                       u"---99",
                                                       u"2024",
                                                       u"2024-05",
                                                       u"99991399",
                                                       u"00000101",
                                                       u"15001231",
                                                       u"T102200Z",
                                                       u"T10:22",
                                                       u"T25",
                                                       u"T-1022",
                                                       u"T--22",
                                                       u"T10:x30",
                                                       u"T-Z",
                                                       u"T1022-0500",
                                                       u"VCARD",
                                                       u"X-ADDRESSBOOKSERVER-MEMBER:x",
                                                       u"END:VCARD",
                                                       u"~~"};

  RandomSource m_random;
};

} // namespace cardwright
