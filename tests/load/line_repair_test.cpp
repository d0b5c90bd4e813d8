#include "cardwright/vcard.h"
#include "load/doubling.h"

#include <gtest/gtest.h>

namespace cardwright {
namespace {

constexpr std::size_t kUnits = 1'000'000;

Text repeated(TextView piece, std::size_t units) {
  Text text;
  text.reserve(units + piece.size());
  while (text.size() < units) {
    text += piece;
  }
  return text;
}

void cut(const Text& line) {
  static_cast<void>(VCard::candidatePropertyLinesFromLine(TextView(line)));
}

void decode(const Text& line) {
  static_cast<void>(VCard::normalizedStringByDecodingNumericEntitiesFromString(TextView(line)));
}

TEST(LineRepairLoad, runsBehindMergedNames) {
  for (const TextView run :
       {TextView(u";"), TextView(u"; "), TextView(u" "), TextView(u";a"), TextView(u"a;"),
        TextView(u";a.b"), TextView(u";a."), TextView(u"\r\n"), TextView(u"\r\n "),
        TextView(u";\r\n"), TextView(u";a:"), TextView(u"; ;a:"), TextView(u"x"),
        TextView(u"X-ADDRESSBOOKSERVER-"), TextView(u"\u017F"), TextView(u";\u00A0")}) {
    expectDoubleTimeAtMost(
        kUnits,
        [run](std::size_t units) {
          return u"X-ADDRESSBOOKSERVER-A;X-ADDRESSBOOKSERVER-" + repeated(run, units);
        },
        cut);
    expectDoubleTimeAtMost(
        kUnits,
        [run](std::size_t units) {
          return u"X-ADDRESSBOOKSERVER-A:1;X-ADDRESSBOOKSERVER-B:" + repeated(run, units) + u":";
        },
        cut);
  }
}

TEST(LineRepairLoad, referencesWithoutAnEnd) {
  for (const TextView run : {TextView(u"&#1"), TextView(u"&#"), TextView(u"&#x"), TextView(u"&"),
                             TextView(u"&#65;"), TextView(u"&#0;")}) {
    expectDoubleTimeAtMost(
        kUnits, [run](std::size_t units) { return repeated(run, units); }, decode);
  }
}

TEST(LineRepairLoad, digitsWithoutAnEnd) {
  for (const TextView begin : {TextView(u"&#"), TextView(u"&#x")}) {
    for (const TextView end : {TextView(u""), TextView(u";")}) {
      expectDoubleTimeAtMost(
          kUnits,
          [begin, end](std::size_t units) {
            return Text(begin) + repeated(u"1", units) + Text(end);
          },
          decode);
    }
  }
}

} // namespace
} // namespace cardwright
