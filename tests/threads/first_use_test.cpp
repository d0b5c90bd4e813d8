#include "cardwright/cardwright.h"
#include "threads/at_once.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright {
namespace {

Text firstMatchOf(const CleanerPattern& pattern, TextView text) {
  const auto match = pattern.firstMatch(text);
  return match ? Text(text.substr(match->range.location, match->range.length)) : Text(u"none");
}

Text nameOf(bool answer) {
  return answer ? u"yes" : u"no";
}

Text decoded(std::string_view bytes, TextView charset) {
  return VCardUtilities::stringFromData(bytes, charset).value_or(u"absent");
}

using Operation = Text (*)();

/// Operations that need something made once, each of another kind.
const std::vector<Operation> kOperations{
    [] { return nameOf(VCardUtils::lineTerminatorCharacterSet().contains(u'\r')); },
    [] { return nameOf(VCardUtils::headerWhitespaceCharacterSet().contains(0x2003)); },
    [] { return nameOf(VCardUtils::spaceAndTabCharacterSet().contains(u'\t')); },
    [] { return Text(VCardUtils::recoverableStandalonePropertyNames().back()); },
    [] { return nameOf(VCardCleaner::envelopeTrimCharacterSet().contains(0xFEFF)); },
    [] { return nameOf(VCardCleaner::isAllowlistedProperty(u"VND-1-SENSITIVE-CONTENT-CONFIG")); },
    [] { return Text(VCardCleaner::allowlistPatternRegexes().front().pattern()); },
    [] { return firstMatchOf(VCardCleaner::groupPrefixRegex(), u"item1.TEL"); },
    [] { return firstMatchOf(VCardCleaner::danglingFragmentRegex(), u"aX-ABLABEL"); },
    [] { return firstMatchOf(VCardCleaner::trailingExtendedHeaderFragmentRegex(), u"aX-A;b "); },
    [] { return firstMatchOf(VCardCleaner::allowedHeaderRegex(), u"1TEL;A=b:2"); },
    [] { return firstMatchOf(VCardCleaner::anyUpperHeaderRegex(), u"1X-TEL;A=b:2"); },
    [] { return Text(VCardCleaner::trimTrailingWhitespace(u"a\u0301\u2003")); },
    [] { return nameOf(VCardCleaner::fastContains(u"Stra\u00DFe", u"STRASSE")); },
    [] { return VCardCleaner::asciiUppercased(u"stra\u00DFe"); },
    [] { return Text(1, VCardUtilities::firstCharacter(u"e\u0301")); },
    [] { return VCardUtilities::validXMLString(u"a\uFFFDb"); },
    [] { return decoded("\xE9", u"windows-1252"); },
    [] { return decoded("\x82\xA0", u"shift_jis"); },
    [] { return decoded("\xFF\xFE\x41\x00", u"utf-16"); },
    [] { return decoded("\xC3\x28", u"utf-8"); },
    [] { return nameOf(propertyIsSupportedForVersion(u"kind", 3)); },
    [] { return nameOf(typeIsSupportedForVersion(u"cell", 4)); },
    [] { return VCardProperty::propertyForVersion(4)->description(); },
    [] { return VCardCleaner::foldLine75(Text(40, u'\u3042')).front(); },
    [] {
      VCardCleaner cleaner;
      return cleaner.clean(TextView(u"BEGIN:VCARD\r\nTEL:1EMAIL:2\r\nEND:VCARD\r\n"));
    },
    [] {
      const auto card = VCard::firstvCardFromString(
          TextView(u"GEO:1.5;2\nREV:2001-02-03T04:05:06+01:00\nTZ:+0230\n"));
      return card == nullptr ? Text() : card->description();
    },
};

TEST(FirstUse, mayBeMadeByAllThreadsAtOnce) {
  std::array<std::vector<Text>, kThreads> results;
  results.fill(std::vector<Text>(kOperations.size()));
  runAtOnce(kOperations.size(),
            [&](std::size_t thread, std::size_t i) { results[thread][i] = kOperations[i](); });
  for (std::size_t i = 0; i < kOperations.size(); ++i) {
    const Text alone = kOperations[i]();
    EXPECT_FALSE(alone.empty()) << i;
    for (const std::vector<Text>& result : results) {
      EXPECT_EQ(result[i], alone) << i;
    }
  }
}

} // namespace
} // namespace cardwright
