#pragma once

#include "support/random_source.h"

#include <array>
#include <string>
#include <string_view>

namespace cardwright {

/// Makes cards of what the versions have in common and of what only one of them has: each line is
/// sound for the version of its card.
class VersionCards {
 public:
  explicit VersionCards(std::uint64_t seed) : m_random(seed) {}

  /// @param version 3 or 4
  std::string card(int version) {
    std::string text = "BEGIN:VCARD\r\nVERSION:" + std::to_string(version) + ".0\r\nFN:x\r\n";
    for (std::size_t lines = m_random.below(12); lines > 0; --lines) {
      if (m_random.oneIn(5)) {
        text += m_random.oneIn(2) ? "item1." : "item2.";
      }
      appendLine(text, version);
      text += "\r\n";
    }
    return text + "END:VCARD\r\n";
  }

 private:
  void appendLine(std::string& text, int version) {
    const bool isCommon = m_random.oneIn(2);
    const std::string_view line = isCommon       ? m_random.oneOf(kCommon)
                                  : version == 3 ? m_random.oneOf(kOnly3)
                                                 : m_random.oneOf(kOnly4);
    const std::size_t nameEnd = line.find_first_of(";:");
    text += line.substr(0, nameEnd);
    for (std::size_t parameters = m_random.below(3); parameters > 0; --parameters) {
      text += version == 3 ? m_random.oneOf(kParameters3) : m_random.oneOf(kParameters4);
    }
    text += line.substr(nameEnd);
  }

  static constexpr std::array<std::string_view, 37> kCommon = {
      "ADR:;;1 Main St;Town;;1;Land",
      "ADR:;;2 Main St\\, rear;Town,Ville;;2;Land",
      "BDAY:someday",
      "CALADRURI:http://a/b,c",
      "CATEGORIES:a,b\\,c, d",
      "EMAIL:a@example.com",
      "FN:y",
      "GEO;VALUE=text:near the river",
      "IMPP:xmpp:a@example.com",
      "IMPP;X-SERVICE-TYPE=AIM:aim:b",
      "N:Doe;Jane,J.;;;",
      "NICKNAME:Jay,Dee\\, Dum",
      "NOTE:a\\nb\\; c",
      "ORG:Works;Sales\\; North",
      "PRODID:me",
      "ROLE:r",
      "SOURCE:http://a",
      "TEL:+1 555",
      "TITLE:t",
      "TZ:Europe/Berlin",
      "UID:urn:uuid:1",
      "URL:http://a?b;c,d",
      "X-A:b",
      "X-A;VALUE=uri:b:c,d",
      "X-ABDATE:20240203",
      "X-ABLabel:_$!<Home>!$_",
      "X-ABRELATEDNAMES:Ada",
      "X-CUSTOM:a-=+=-b",
      "X-SOCIALPROFILE:http://a/b",
      "X-TWITTER:a",
      "ORG:Works;;",
      "NOTE;LANGUAGE=fr:d",
      "X-ABDATE:2024-02-03",
      "X-A;VALUE=date:20240203",
      "X-A;VALUE=integer:5",
      "X-FORMERLY:a",
      "EMAIL:"};

  static constexpr std::array<std::string_view, 79> kOnly3 = {
      "AGENT:a",
      "AGENT;VALUE=uri:http://a",
      "BDAY:2024-02-29",
      "BDAY;VALUE=date:2024-02-28",
      "BDAY:2024-02-28T10:00:00Z",
      "BDAY;X-APPLE-OMIT-YEAR=1604:1604-02-29",
      "BDAY;X-APPLE-OMIT-YEAR=1600:1600-02-28",
      "CLASS:PUBLIC",
      "GEO:1.5;-2.25",
      "GEO:+01.50;2",
      "GEO:1.123456789;2",
      "KEY;ENCODING=b:AAAA",
      "KEY;TYPE=PGP:text",
      "LABEL:a\\nb",
      "LABEL;TYPE=home:c",
      "LABEL;LANGUAGE=fr:d",
      "LOGO;ENCODING=b;TYPE=PNG:iVBORw0KGgo=",
      "MAILER:m",
      "NAME:n",
      "PHOTO;ENCODING=b;TYPE=JPEG:/9j/",
      "PHOTO;ENCODING=b;TYPE=PNG:/9j/",
      "PHOTO;ENCODING=b:brok",
      "PHOTO;ENCODING=b:bro",
      "PHOTO;VALUE=uri;TYPE=GIF:http://a/b.gif",
      "PROFILE:VCARD",
      "REV:2024-02-03T10:00:00Z",
      "REV:2024-02-03",
      "SORT-STRING:s, t",
      "SOUND;ENCODING=b;TYPE=WAVE:AAAA",
      "TZ:-05:00",
      "TZ;VALUE=text:EST",
      "X-ADDRESSBOOKSERVER-KIND:group",
      "X-AIM:a b%20c",
      "X-ANNIVERSARY:2024-02-03",
      "X-ANNIVERSARY;X-APPLE-OMIT-YEAR=1604:1604-02-03",
      "X-ASSISTANT:a",
      "X-GENDER:Male",
      "X-GENDER:F",
      "X-GENDER:perhaps",
      "X-GTALK:g@example.com",
      "X-JABBER:\xC3\xA9",
      "X-MANAGER:m",
      "X-SKYPE-USERNAME:s",
      "X-SPOUSE:s",
      "X-SPOUSE;VALUE=uri:urn:uuid:2",
      "BDAY:2024-02",
      "BDAY:--0203",
      "BDAY:1990",
      "BDAY;X-APPLE-OMIT-YEAR=1604:2001-02-03",
      "BDAY;X-APPLE-OMIT-YEAR=x:1604-02-03",
      "BDAY;X-APPLE-OMIT-YEAR=1900:1900-02-28",
      "GEO:here",
      "GEO:1,2",
      "GEO:91;181",
      "IMPP;TYPE=home:skype:c",
      "KEY;ENCODING=b;TYPE=X509:MIIB",
      "KEY;ENCODING=b;TYPE=PGP:AAAA",
      "KEY;VALUE=uri:http://a",
      "LABEL;TYPE=HOME:e",
      "LABEL;TYPE=work,pref:f",
      "LABEL;CHARSET=UTF-8:g",
      "PHOTO;ENCODING=b;TYPE=\"image/png\":AAAA",
      "PHOTO;ENCODING=b;TYPE=SVG:AAAA",
      "PHOTO;VALUE=uri:data:image/png;base64,iVBO",
      "PHOTO;TYPE=JPEG:/9j/",
      "PHOTO;VALUE=uri;TYPE=JPG:http://a",
      "SOUND;VALUE=uri;TYPE=WAVE:http://a",
      "TEL;TYPE=cell,voice:1",
      "TZ:EST",
      "TZ:+01",
      "TZ:Z",
      "X-AIM;VALUE=uri:aim:b",
      "X-AIM;X-SERVICE-TYPE=AIM:b",
      "X-CHILD;TYPE=home:c",
      "X-GENDER:Female",
      "X-MSN:a%41",
      "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1",
      "X-ANNIVERSARY:1990",
      "X-ANNIVERSARY:2024-02-03T10:00:00Z"};

  static constexpr std::array<std::string_view, 94> kOnly4 = {
      "ADR;LABEL=\"a, b^nc\":;;3 Main St;;;;",
      "ADR;LABEL=d\\nd:;;4 Main St;;;;",
      "ANNIVERSARY:20240203",
      "ANNIVERSARY:--0203",
      "ANNIVERSARY:2024-02",
      "ANNIVERSARY:20240203T10",
      "ANNIVERSARY;VALUE=text:spring",
      "BDAY:--0229",
      "BDAY:1990",
      "BDAY:---05",
      "BDAY:T10",
      "BDAY;VALUE=text:circa 1800",
      "BDAY;CALSCALE=gregorian:20240203",
      "BIRTHPLACE:Town",
      "BIRTHPLACE;VALUE=uri:geo:1,2",
      "CLIENTPIDMAP:1;urn:uuid:3",
      "DEATHDATE:19000102",
      "EXPERTISE;LEVEL=expert:e",
      "FBURL:http://a",
      "GENDER:M",
      "GENDER:O;other\\; more",
      "GENDER:;none",
      "GEO:geo:1.5,-2.25",
      "GEO:geo:1.50,2,3;u=1",
      "GEO:http://a",
      "HOBBY;INDEX=1:h",
      "KIND:org",
      "LANG:fr",
      "LOGO:data:image/png;base64,iVBORw0KGgo=",
      "MEMBER:mailto:a@example.com",
      "N;SORT-AS=\"Doe,Jane\":Doe;Jane;;;",
      "ORG;SORT-AS=o:O",
      "PHOTO:data:image/jpeg;base64,/9j/",
      "PHOTO:data:image/png;base64,/9j/",
      "PHOTO:data:;base64,AAAA",
      "PHOTO:data:text/plain,hello",
      "PHOTO;MEDIATYPE=image/svg+xml:http://a/b",
      "RELATED;TYPE=friend:urn:uuid:4",
      "RELATED;TYPE=spouse;VALUE=text:Ada",
      "RELATED;TYPE=agent:http://a",
      "REV:20240203T100000Z",
      "TEL;VALUE=uri:tel:+1-555;ext=5",
      "TEL;VALUE=uri:sip:a@b",
      "TZ;VALUE=utc-offset:-0500",
      "XML:<a/>",
      "ADR;LABEL=e;GEO=\"geo:1,2\":;;5 Main St;;;;",
      "ADR;LABEL=\"f^nf\";TZ=EST:;;6 Main St;;;;",
      "ADR;LABEL=\" g\":;;7 Main St;;;;",
      "BDAY:20240203T102030Z",
      "BDAY:20240203T1020",
      "BDAY;VALUE=date:20240203",
      "BDAY:2024-02",
      "DEATHDATE;VALUE=text:spring",
      "DEATHDATE:--0203",
      "GENDER:F;",
      "GENDER:;it",
      "GENDER:M;Male",
      "GEO:geo:1,2;crs=wgs84",
      "GEO;PREF=1:geo:12.3457,78.910",
      "IMPP:sip:a@b",
      "KEY:data:application/pgp-keys;base64,LS0tLS1CRUdJTiBQR1A=",
      "KEY;VALUE=text:a",
      "KEY;MEDIATYPE=application/pgp-keys:http://a",
      "KIND:group",
      "LANG:de",
      "MEMBER:tel:+1",
      "MEMBER:http://a",
      "N;SORT-AS=Doe:Doe;Jane;;;",
      "N;SORT-AS=\"Doe\",Jane:Doe;Jane;;;",
      "PHOTO:data:image/png;charset=utf-8;base64,AAAA",
      "PHOTO:data:image/png;base64,AAA%3D",
      "PHOTO:data:image/png,%41",
      "PHOTO:DATA:image/png;base64,AAAA",
      "PHOTO:data:image/svg+xml;base64,AAAA",
      "PHOTO;MEDIATYPE=image/png,image/gif:http://a",
      "RELATED:urn:uuid:5",
      "RELATED;VALUE=text:Bob",
      "RELATED;TYPE=spouse:urn:uuid:6",
      "RELATED;TYPE=spouse,friend;VALUE=text:C",
      "RELATED;TYPE=agent;VALUE=text:D",
      "RELATED;TYPE=child;VALUE=text:E",
      "REV:20240203",
      "SOUND:data:audio/ogg;base64,T2dnUw==",
      "TEL;VALUE=uri;TYPE=\"voice,cell\":tel:+1",
      "TEL;VALUE=uri:TEL:+2",
      "TZ;VALUE=uri:http://a",
      "TZ:+0100",
      "X-A;VALUE=date-and-or-time:--0203",
      "X-A;VALUE=date-and-or-time:20240203T102030Z",
      "X-A;VALUE=timestamp:20240203T102030Z",
      "X-A;VALUE=time:T1020",
      "X-A;VALUE=language-tag:de",
      "ANNIVERSARY;VALUE=date:20240203",
      "ANNIVERSARY:20240203T102030Z"};

  static constexpr std::array<std::string_view, 16> kParameters3 = {
      ";TYPE=home",     ";TYPE=work",    ";TYPE=pref",      ";TYPE=pref,home",
      ";TYPE=dom",      ";TYPE=fancy",   ";X-B=c",          ";CONTEXT=ct",
      ";LANGUAGE=en",   ";TYPE=\"a,b\"", ";TYPE=Home,HOME", ";X-B=\"c,d\",e",
      ";X-B=\"f;g:h\"", ";X-B=^n^'",     ";TYPE=internet",  ";TYPE=msg,bbs"};
  static constexpr std::array<std::string_view, 22> kParameters4 = {";TYPE=home",
                                                                    ";TYPE=work",
                                                                    ";PREF=1",
                                                                    ";PREF=50",
                                                                    ";PID=1.1",
                                                                    ";ALTID=1",
                                                                    ";TYPE=text",
                                                                    ";X-B=c",
                                                                    ";LANGUAGE=en",
                                                                    ";MEDIATYPE=text/plain",
                                                                    ";PREF=100",
                                                                    ";TYPE=\"home,work\"",
                                                                    ";TYPE=friend",
                                                                    ";SORT-AS=s",
                                                                    ";CALSCALE=gregorian",
                                                                    ";GEO=\"geo:1,2\"",
                                                                    ";TZ=EST",
                                                                    ";INDEX=1",
                                                                    ";LEVEL=high",
                                                                    ";LABEL=l",
                                                                    ";X-B=\"c,d\",e",
                                                                    ";X-B=^n"};

  RandomSource m_random;
};

} // namespace cardwright
