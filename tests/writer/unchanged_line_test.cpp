#include "support/random_source.h"
#include "support/rewritten_line.h"
#include "support/seed.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace cardwright {
namespace {

std::optional<Text> rewritten(TextView line, VersionCode readAs, VersionCode version) {
  std::vector<char> room(roomForLine(line));
  Bytes output(room.data(), room.size());
  HeaderMemory memory;
  const RewrittenLine rewritten =
      rewriteLine(output, {{line, line.data() + line.size()}, readAs}, version, memory);
  const bool isWhole = rewritten.rewriting == Rewriting::done;
  EXPECT_EQ(rewritesLikeItsProperty(line, readAs, version), isWhole);
  return isWhole ? std::optional(textFromUtf8(output.view())) : std::nullopt;
}

TEST(UnchangedLine, findsGroupAndName) {
  const TextView grouped = u"item1.X-ABLabel;A=b:c";
  const std::optional<LineName> label = nameOf(grouped);
  ASSERT_TRUE(label);
  EXPECT_EQ(label->groupSize(), 5U);
  EXPECT_EQ(label->key(grouped), u"X-ABLABEL");
  EXPECT_EQ(grouped[label->end], u';');
  const TextView own = u"X-OWN:";
  const std::optional<LineName> other = nameOf(own);
  ASSERT_TRUE(other);
  EXPECT_EQ(other->groupSize(), 0U);
  EXPECT_EQ(other->key(own), u"X-OWN");
  for (const TextView line : {u"", u":", u".FN:", u"a.b.FN:", u"X-Own:", u"\"FN\":", u" FN:",
                              u"F\u0130:", u"FN", u"FN ;A=b:c", u"a.:"}) {
    EXPECT_FALSE(nameOf(line)) << testing::PrintToString(line);
  }
}

TEST(UnchangedLine, isSpelledAsItIsWritten) {
  EXPECT_EQ(rewritten(u"fn:Ann", 3, 3), u"FN:Ann");
  EXPECT_EQ(rewritten(u"i.tel;type=cell,voice;type=pref:  1", 3, 3),
            u"i.TEL;TYPE=CELL;TYPE=VOICE;TYPE=pref:1");
  EXPECT_EQ(rewritten(u"TEL;CELL;VOICE:1", 2, 2), u"TEL;CELL;VOICE:1");
  EXPECT_EQ(rewritten(u"TEL;CELL;VOICE:1", 2, 4), u"TEL;TYPE=CELL;TYPE=VOICE:1");
  EXPECT_EQ(rewritten(u"TEL;PREF=1;TYPE=\"voice,home\";VALUE=uri:tel:1", 4, 4),
            u"TEL;VALUE=URI;TYPE=\"VOICE,HOME\";PREF=1:tel:1");
  EXPECT_EQ(rewritten(u"NOTE:a, b\\; c\\:d; e\\N", 3, 3), u"NOTE:a\\, b\\; c:d\\; e\\n");
  EXPECT_EQ(rewritten(u"NOTE:a, b\\; c\\:d; e\\N", 4, 4), u"NOTE:a\\, b; c:d; e\\n");
  EXPECT_EQ(rewritten(u"N:Doe;Ann,Mary", 3, 4), u"N:Doe;Ann,Mary;;;");
  EXPECT_EQ(rewritten(u"ADR:;;1 Road\\, 2", 3, 3), u"ADR:;;1 Road\\, 2;;;;");
  EXPECT_EQ(rewritten(u"ORG:A, B;C", 3, 3), u"ORG:A\\, B;C");
  EXPECT_EQ(rewritten(u"NICKNAME:a,b;c,", 3, 3), u"NICKNAME:a,b\\;c,");
  EXPECT_EQ(rewritten(u"REV:20240229T101112Z", 3, 3), u"REV:2024-02-29T10:11:12Z");
  EXPECT_EQ(rewritten(u"BDAY:1980-02-03", 3, 4), u"BDAY:19800203");
  EXPECT_EQ(rewritten(u"TZ:-0530", 3, 3), u"TZ:-05:30");
  EXPECT_EQ(rewritten(u"GENDER:O;a,b;c\\;d", 4, 4), u"GENDER:O;a\\,b\\;c\\;d");
  EXPECT_EQ(rewritten(u"GEO:1.000000,-20.123456", 3, 3), u"GEO:1.000000;-20.123456");
  EXPECT_EQ(rewritten(u"PHOTO;ENCODING=b;TYPE=JPEG:/9j/", 3, 3),
            u"PHOTO;ENCODING=B;TYPE=JPEG:/9j/");
}

TEST(UnchangedLine, isLeftToItsPropertyWhereItsTextsHaveToBeKnown) {
  for (const TextView line : {u"FN;ENCODING=QUOTED-PRINTABLE:=4",
                              u"FN;ENCODING=QUOTED-PRINTABLE:=",
                              u"FN;ENCODING=QUOTED-PRINTABLE:=4a",
                              u"FN;ENCODING=QUOTED-PRINTABLE:=00",
                              u"FN;ENCODING=QUOTED-PRINTABLE:=0D",
                              u"FN;ENCODING=QUOTED-PRINTABLE:=C3",
                              u"FN;ENCODING=QUOTED-PRINTABLE:=C3A9",
                              u"FN;ENCODING=QUOTED-PRINTABLE:=ED=A0=80",
                              u"FN;ENCODING=QUOTED-PRINTABLE:\u00E9=41",
                              u"FN;ENCODING=QUOTED-PRINTABLE:a\\,",
                              u"N;ENCODING=QUOTED-PRINTABLE:=20a",
                              u"BDAY;ENCODING=QUOTED-PRINTABLE:2024-01-01",
                              u"FN;ENCODING=8BIT;ENCODING=QUOTED-PRINTABLE:=41",
                              u"FN;CHARSET=ISO-8859-1:a",
                              u"FN:a\\",
                              u"FN:a\\r",
                              u"FN:\u0001",
                              u"FN:\xD800",
                              u"PHOTO:",
                              u"PHOTO;BASE64:AAAA",
                              u"N:a;b;c;d;e;f",
                              u"N: a ; b",
                              u"N:a,;b",
                              u"NICKNAME:a ,b",
                              u"BDAY:--0203",
                              u"BDAY:2023-02-29",
                              u"REV:2024-01-01T10:11:12+01:00",
                              u"TZ:-00:00",
                              u"TZ:Europe/Rome",
                              u"GEO:1.5;2.5",
                              u"GEO:01.123456;1.123456",
                              u"GENDER:M\\;F",
                              u"TEL;TYPE=a^nb:1",
                              u"TEL;TYPE=\"a\" b:1",
                              u"TEL;A,B:1",
                              u"TEL;TYPE=:1",
                              u"TEL;X-\u00E9=1:1",
                              u"TEL;X-PARAMETER=1;X-PARAMETRE=2:1"}) {
    for (const VersionCode version : {3, 4}) {
      EXPECT_EQ(rewritten(line, 3, version), std::nullopt) << testing::PrintToString(line);
    }
  }
  EXPECT_EQ(rewritten(u"PHOTO;ENCODING=BASE64;TYPE=JPEG:/9j/", 2, 2), std::nullopt);
  EXPECT_EQ(rewritten(u"TEL;A=1;B=1;C=1;D=1;E=1;F=1;G=1;H=1;I=1;J=1;K=1;L=1;M=1:1", 3, 3),
            std::nullopt);
}

TEST(UnchangedLine, isWrittenDecoded) {
  const TextView header = u"FN;CHARSET=utf-8;ENCODING=quoted-printable:";
  const auto decoded = [header](TextView value, VersionCode version) {
    return rewritten(Text(header).append(value), 2, version);
  };
  EXPECT_EQ(decoded(u"Wei=C3=9F =F0=9F=98=80=E2=82=AC", 3), u"FN:Wei\u00DF \U0001F600\u20AC");
  EXPECT_EQ(decoded(u"a=2C=3B=5C,;=0D=0Ab=0A", 3), u"FN:a\\,\\;\\\\\\,\\;\\nb\\n");
  EXPECT_EQ(decoded(u"a=2C=3B=5C,;=0D=0Ab=0A", 4), u"FN:a\\,;\\\\\\,;\\nb\\n");
  EXPECT_EQ(decoded(u"=41", 2), u"FN;CHARSET=UTF-8:A");
  EXPECT_EQ(rewritten(u"N;ENCODING=QUOTED-PRINTABLE:a=3Bb;c,d=2C", 2, 3), u"N:a\\;b;c,d\\,;;;");
  EXPECT_EQ(rewritten(u"TITLE;CHARSET=UTF-8:\u00E9", 2, 3), u"TITLE;CHARSET=UTF-8:\u00E9");
  EXPECT_EQ(rewritten(u"BDAY;CHARSET=UTF-8:1980-02-03", 3, 4), u"BDAY;CHARSET=UTF-8:19800203");
  EXPECT_EQ(rewritten(u"REV;CHARSET=UTF-8:19800203T010203Z", 3, 4),
            u"REV;CHARSET=UTF-8:19800203T010203Z");
  EXPECT_EQ(rewritten(u"TZ;CHARSET=UTF-8:+01:00", 3, 4), u"TZ;CHARSET=UTF-8:+0100");
  EXPECT_EQ(rewritten(u"GEO;CHARSET=UTF-8:1.000000;2.000000", 3, 3),
            u"GEO;CHARSET=UTF-8:1.000000;2.000000");
}

/// As writeCards does it, in the version that its card states.
std::optional<Text> safelyRewritten(TextView line, VersionCode stated, VersionCode version) {
  const auto safe = lineRewriting(line, stated, version, stated);
  return safe ? std::optional(safe->text.substr(0, safe->text.size() - 2)) : std::nullopt;
}

TEST(UnchangedLine, isMendedAsWriteCardsDoesIt) {
  const TextView header = u"ADR;HOME;ENCODING=Quoted-Printable;CHARSET=utf-8;X-A=b:;;=41";
  EXPECT_EQ(safelyRewritten(header, 2, 3), u"ADR;TYPE=HOME;CHARSET=utf-8;X-A=b:;;A;;;;");
  EXPECT_EQ(safelyRewritten(header, 2, 2), u"ADR;HOME;CHARSET=UTF-8;X-A=b:;;A;;;;");
  EXPECT_EQ(safelyRewritten(u"FN;X-A=b;ENCODING=QUOTED-PRINTABLE:=41", 2, 2),
            u"FN;CHARSET=UTF-8;X-A=b:A");
  EXPECT_EQ(lineRewriting(header, 2, 3, 2)->encoding, u"Quoted-Printable");
  EXPECT_EQ(lineRewriting(u"FN:a", 2, 3, 2)->encoding, u"");
  EXPECT_EQ(safelyRewritten(u"URL:a?b=1\\,2;c,d", 3, 3), u"URL:a?b=1,2;c,d");
  EXPECT_EQ(safelyRewritten(u"TEL;VALUE=uri;TYPE=\"voice,cell\":tel:1", 4, 4),
            u"TEL;VALUE=URI;TYPE=\"VOICE,CELL\":tel:1");
  EXPECT_EQ(safelyRewritten(u"GENDER:;x;y", 4, 3), u"GENDER:;x\\;y");
  for (const TextView line :
       {u"URL:a\\\\b", u"URL:a\\nb", u"FN;ENCODING=QUOTED-PRINTABLE:=20a", u"X-A;VALUE=b:c",
        u"TEL;VALUE=text;VALUE=uri:1", u"NICKNAME;VALUE=text:a", u"TEL;TYPE=\"a=b\":1",
        u"TEL;TYPE=\"&#38\":1", u"TEL;TYPE=\" a\":1", u"TEL;CHARSET=UTF-8;CHARSET=UTF-8:1",
        u"item1.X-ABLABEL;ENCODING=QUOTED-PRINTABLE:=41"}) {
    EXPECT_EQ(safelyRewritten(line, 3, 3), std::nullopt) << testing::PrintToString(line);
  }
}

TEST(UnchangedLine, isLeftToItsPropertyWhereItsHeaderIsVeryLong) {
  EXPECT_TRUE(rewritten(u"TEL;X-P=" + Text(504, u'a') + u":1", 3, 3));
  EXPECT_FALSE(rewritten(u"TEL;X-P=" + Text(505, u'a') + u":1", 3, 3));
  EXPECT_TRUE(rewritten(u"NOTE:" + Text(100'000, u'a'), 3, 3));
}

TEST(UnchangedLine, isLeftToItsPropertyWhereAColonDoesNotEndItsHeader) {
  const Text name(400, u'x');
  const Text line = (u"TEL;A=\":\";X-" + name).append(u"=a,b,c,d,e,f,g,h,i,j,k:1");
  EXPECT_EQ(rewritten(line, 3, 3), std::nullopt);
  EXPECT_EQ(rewritten(u"TEL;A=\"b:c\":1", 3, 3), std::nullopt);
}

TEST(UnchangedLine, hasRoomForTheLongestSpellings) {
  for (const std::size_t length : {1U, 20U, 100U, 127U, 128U, 129U, 450U}) {
    const Text name(length, u'x');
    const Text list = u"a,b,c,d,e,f,g,h,i,j,k,l";
    EXPECT_TRUE(rewritten((u"TEL;" + name).append(u"=").append(list).append(u":1"), 3, 3));
    EXPECT_TRUE(rewritten(u"NOTE:" + Text(length, u','), 3, 3));
    EXPECT_TRUE(rewritten(u"N:" + name, 3, 3));
    EXPECT_TRUE(rewritten(u"TEL;" + name + u";A;A;A;A;A;A;A;A;A;A;A:1", 2, 3));
  }
}

TEST(UnchangedLine, isThatOfItsPropertyHoweverLong) {
  RandomSource random(testSeed());
  static constexpr std::array<TextView, 18> kPieces = {
      u";X-",   u"abcdefghij", u"=",        u",",
      u"\"",    u";TYPE=",     u"a",        u"B,c",
      u":",     u";N=\"a;b\"", u"\\",       u"n",
      u"\\,",   u";",          u",d,e,f,g", u";abcdefghijklmnopqrstuvwxyz=",
      u"\":\"", u" x"};
  std::size_t rewrittenLines = 0;
  for (int i = 0; i < 200'000; ++i) {
    Text line = random.oneIn(4) ? u"N" : random.oneIn(3) ? u"item1.ADR" : u"TEL";
    for (std::size_t pieces = random.below(40); pieces > 0; --pieces) {
      line += random.oneOf(kPieces);
    }
    line += random.oneIn(2) ? u":1" : u";A=b:1";
    VCardProperty property;
    DateFormatter formatter("en_US_POSIX");
    if (property.parse(line, 3, &formatter)) {
      rewrittenLines += rewritesLikeItsProperty(line, 3, 3) ? 1 : 0;
      ASSERT_FALSE(testing::Test::HasFailure());
    }
  }
  EXPECT_GT(rewrittenLines, 1000U);
}

} // namespace
} // namespace cardwright
