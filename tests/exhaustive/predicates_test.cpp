#include "cardwright/vcard_cleaner.h"
#include "exhaustive/short_texts.h"
#include "support/icu_pattern.h"
#include "support/reference_predicates.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace cardwright {
namespace {

/// Words that decide, and that no short text holds; such texts stand between them.
constexpr std::array<std::pair<TextView, TextView>, 8> kSurroundings{
    {{u"a1.tel", u":1"},
     {u"N", u"A=1:"},
     {u"X-", u"://1"},
     {u"sip:", u""},
     {u"", u"mailto:1"},
     {u"A;encoding=quoted-printable", u":"},
     {u"A;A=\"", u"\";ENCODING=QUOTED-PRINTABLE:"},
     {u"vnd-1", u"-sensitive-content-config:"}}};

/// Short texts alone, and somewhat shorter ones in their surroundings.
template <typename Test>
void forEachLine(Test test, std::size_t longest = kLongestText) {
  forEachShortText(test, longest);
  for (const auto& [before, after] : kSurroundings) {
    forEachShortText([&, front = before, back = after](
                         const Text& part) { test(Text(front).append(part).append(back)); },
                     kLongestText - 1);
  }
}

TEST(ExhaustivePredicates, divideLinesLikeTheReference) {
  ReferencePredicates reference;
  forEachLine([&](const Text& line) {
    ASSERT_EQ(VCardCleaner::firstUnquotedColonIndex(line), reference.firstColon(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::propertyNameUpper(line), reference.name(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::lineUsesQuotedPrintable(line), reference.usesQuotedPrintable(line))
        << testing::PrintToString(line);
  });
}

TEST(ExhaustivePredicates, readLineEndsLikeTheReference) {
  ReferencePredicates reference;
  forEachLine([&](const Text& line) {
    ASSERT_EQ(VCardCleaner::lineHasQuotedPrintableSoftBreak(line), reference.hasSoftBreak(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(line),
              reference.withoutSoftBreak(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::trimTrailingWhitespace(line), reference.trimmed(line))
        << testing::PrintToString(line);
  });
}

TEST(ExhaustivePredicates, judgeHeadersLikeTheReference) {
  ReferencePredicates reference;
  forEachLine([&](const Text& line) {
    ASSERT_EQ(VCardCleaner::isPlausiblePropertyHeader(line), reference.isPlausible(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::lineLooksLikeStandaloneUriContinuation(line),
              reference.isUriContinuation(line))
        << testing::PrintToString(line);
  });
}

TEST(ExhaustivePredicates, matchHeadersLikeTheEngine) {
  IcuPattern allowed(VCardCleaner::allowedHeaderRegex());
  IcuPattern anyUpper(VCardCleaner::anyUpperHeaderRegex());
  // Alone, none of the texts is a header.
  const auto expectLikeTheEngine = [&](const Text& line) {
    ASSERT_EQ(VCardCleaner::startsWithAllowedHeader(line),
              ReferencePredicates::startsWith(allowed, line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::startsWithAnyHeader(line),
              ReferencePredicates::startsWith(anyUpper, line))
        << testing::PrintToString(line);
  };
  forEachLine(expectLikeTheEngine, kLongestText - 1);
}

TEST(ExhaustivePredicates, knowAllowedNamesLikeTheListAndTheEngine) {
  IcuPattern numbered(u"^VND-[0-9]+-SENSITIVE-CONTENT-CONFIG$", true);
  const auto names = VCardCleaner::allowlistFixedUpper();
  const auto expectLikeTheList = [&](const Text& name) {
    const bool isListed = std::find(names.begin(), names.end(), name) != names.end();
    ASSERT_EQ(VCardCleaner::isAllowlistedProperty(name),
              isListed || !numbered.matches(name)->empty())
        << testing::PrintToString(name);
  };
  forEachShortText([&](const Text& part) {
    expectLikeTheList(part);
    expectLikeTheList(Text(u"TEL").append(part));
    expectLikeTheList(Text(part).append(u"ADR"));
    expectLikeTheList(Text(u"vnd-").append(part).append(u"-sensitive-content-config"));
    expectLikeTheList(Text(u"VND-1-SENSITIVE-CONTENT-CONFIG").append(part));
  });
}

TEST(ExhaustivePredicates, countAndFindUnitByUnit) {
  constexpr std::array<TextView, 7> kParts{u"", u":", u"a", u"1A", u"\r\n", u";:", u"=a1"};
  forEachLine([&](const Text& line) {
    ASSERT_EQ(VCardCleaner::countColonsIn(line), std::count(line.begin(), line.end(), u':'))
        << testing::PrintToString(line);
    Text upper = line;
    for (char16_t& unit : upper) {
      unit = unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    }
    for (const TextView part : kParts) {
      Text upperPart(part);
      std::replace(upperPart.begin(), upperPart.end(), u'a', u'A');
      ASSERT_EQ(VCardCleaner::fastContains(line, part), upper.find(upperPart) != Text::npos)
          << testing::PrintToString(line) << testing::PrintToString(part);
    }
  });
}

} // namespace
} // namespace cardwright
