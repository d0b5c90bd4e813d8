#include "cardwright/vcard.h"
#include "load/doubling.h"
#include "reader/merged_lines.h"

#include <gtest/gtest.h>

#include <vector>

namespace cardwright {
namespace {

/// Small enough for a processor's own cache at double size: the work is hardly more than a look at
/// each unit.
constexpr std::size_t kUnits = 100'000;

Text repeated(TextView piece, std::size_t units) {
  Text text;
  text.reserve(units + piece.size());
  while (text.size() < units) {
    text += piece;
  }
  return text;
}

/// Cuts into views: copying megabytes would take longer.
void cut(const Text& line) {
  std::vector<TextView> pieces;
  cutMergedLine(line, pieces);
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
    SCOPED_TRACE(::testing::PrintToString(Text(run)));
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
