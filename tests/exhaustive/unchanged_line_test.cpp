#include "support/combinations.h"
#include "support/rewritten_line.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <iostream>

namespace cardwright {
namespace {

constexpr std::size_t kLongest = kTimesAreMeaningful ? 4 : 3;

/// Tries every short text of the alphabet between the two, in all versions.
/// @returns how many were rewritten
std::size_t tryBetween(TextView before, TextView alphabet, TextView after) {
  std::size_t rewritten = 0;
  forEachCombination(Text(alphabet), kLongest, [&](const Text& text) {
    const Text line = Text(before).append(text).append(after);
    for (const VersionCode readAs : {0, 2, 3, 4}) {
      for (const VersionCode version : {2, 3, 4}) {
        if (!testing::Test::HasFailure()) {
          rewritten += rewritesLikeItsProperty(line, readAs, version) ? 1 : 0;
        }
      }
    }
  });
  return rewritten;
}

class RewrittenValue : public testing::TestWithParam<TextView> {};

TEST_P(RewrittenValue, isThatOfTheProperty) {
  EXPECT_GT(tryBetween(GetParam(), u"\\,;nr a\t\u00E9\u2028\xD83D\xDE00\u0001", u""), 0U);
  EXPECT_GT(tryBetween(Text(GetParam()) + u"abcdefg\\,", u"\\,;N x", u",h;i\u3042"), 0U);
}

INSTANTIATE_TEST_SUITE_P(OfEachClass, RewrittenValue,
                         testing::Values(u"FN:", u"N:", u"ADR:", u"ORG:", u"NICKNAME:", u"URL:",
                                         u"PHOTO:", u"X-OWN:", u"BDAY;VALUE=text:", u"GENDER:",
                                         u"URL;VALUE=uri:", u"RELATED;VALUE=text:",
                                         u"NICKNAME;VALUE=text:", u"X-OWN;VALUE=uri:",
                                         u"N;VALUE=text:", u"NOTE;VALUE=x-own:",
                                         u"X-OWN;VALUE=Org:", u"LOGO;VALUE=url:"));

class RewrittenCode : public testing::TestWithParam<TextView> {};

TEST_P(RewrittenCode, isThatOfTheProperty) {
  const Text header = Text(GetParam()) + u";ENCODING=QUOTED-PRINTABLE:";
  EXPECT_GT(tryBetween(header, u"=0A2CDd3;,\\ \u00E9", u"0A"), 0U);
  EXPECT_GT(tryBetween(header + u"=C3=A", u"=09AC3,;", u"=41"), 0U);
  static_cast<void>(tryBetween(header + u"=EF=B", u"=BF8DE", u"=BF"));
  EXPECT_GT(tryBetween(Text(GetParam()) + u";CHARSET=UTF-8:", u"\\,;n \u00E9=4", u""), 0U);
}

INSTANTIATE_TEST_SUITE_P(OfEachClass, RewrittenCode,
                         testing::Values(u"FN", u"N", u"ORG", u"NICKNAME", u"URL", u"X-OWN",
                                         u"FN;CHARSET=utf-8", u"PHOTO", u"TEL;VALUE=uri", u"GENDER",
                                         u"X-OWN;CHARSET=\"UTF-8\";A=b;HOME",
                                         u"item1.URL;ZZ=1;TYPE=home", u"item1.X-ABLABEL"));

class RewrittenNumbers : public testing::TestWithParam<TextView> {};

TEST_P(RewrittenNumbers, areThoseOfTheProperty) {
  static_cast<void>(tryBetween(GetParam(), u"01-+:.;,TZ9", u""));
}

INSTANTIATE_TEST_SUITE_P(OfEachClass, RewrittenNumbers,
                         testing::Values(u"REV:2024-02-2", u"REV:20240229T1213", u"BDAY:",
                                         u"BDAY:1", u"BDAY:2024-0", u"TZ:", u"TZ:+", u"TZ:-0",
                                         u"GEO:", u"GEO:1.123456;", u"GEO:1.12345",
                                         u"BDAY;VALUE=date:1980-0", u"BDAY;VALUE=DATE-TIME:1980",
                                         u"X-OWN;VALUE=utc-offset:+0", u"TZ;VALUE=text:+0",
                                         u"X-ABDATE:2023-02-2", u"ANNIVERSARY:20240101T101010"));

class RewrittenHeader : public testing::TestWithParam<TextView> {};

TEST_P(RewrittenHeader, isThatOfTheProperty) {
  EXPECT_GT(tryBetween(GetParam(), u";,:=\".a-B ^&", u":1"), 0U);
  EXPECT_GT(tryBetween(GetParam(), u";,:=\".a-B ^", u";VALUE=uri;X-Z=2:1"), 0U);
}

INSTANTIATE_TEST_SUITE_P(OfEachPlace, RewrittenHeader,
                         testing::Values(u"", u"A.TEL", u"TEL", u"TEL;TYPE", u"TEL;TYPE=",
                                         u"EMAIL;TYPE=\"", u"PHOTO;", u"TEL;X-P=1;TYPE=pref",
                                         u"TEL;ENCODING=", u"TEL;VALUE=", u"TEL;CHARSET",
                                         u"TEL;CHARSET=UTF-8", u"FN;ENCODING=quoted-printable",
                                         u"FN;CHARSET=utf-8;ENCODING=quoted-printable;X=",
                                         u"TEL;VALUE=text;VALUE=uri", u"TEL;TYPE=\"a\"",
                                         u"TEL;CHARSET=UTF-8;CHARSET=utf-8", u"TEL;PREF=1;type=",
                                         u"TEL;X-PARAME=1;X-PARA="));

} // namespace
} // namespace cardwright
