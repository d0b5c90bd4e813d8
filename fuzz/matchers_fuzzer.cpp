// The cleaner's scanners find in any text what ICU's engine finds for the same patterns.

#include "cardwright/vcard_cleaner.h"
#include "demand.h"
#include "support/icu_pattern.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace {

using cardwright::CleanerPattern;
using cardwright::demand;
using cardwright::IcuPattern;
using cardwright::Text;
using cardwright::VCardCleaner;

/// What the bytes beyond ASCII stand for: letters that fold to ASCII and such that do not, line
/// ends, blanks, marks, halves of pairs.
constexpr std::array<char16_t, 32> kBeyondAscii{
    0x017F, 0x212A, 0x00DF, 0x1E9E, 0xFB00, 0xFB01, 0xFB02, 0xFB03, 0xFB04, 0xFB05, 0xFB06,
    0x0130, 0x0131, 0x0149, 0x01F0, 0x212B, 0x0085, 0x00A0, 0x2028, 0x2029, 0x3000, 0x200B,
    0xFEFF, 0x0301, 0x0600, 0x200D, 0xD83D, 0xDE00, 0xD800, 0xDFFF, 0xFF21, 0x4E00};

Text textFrom(const std::uint8_t* data, std::size_t size) {
  Text text;
  for (std::size_t i = 0; i < size; ++i) {
    text += data[i] < 0x80 ? char16_t{data[i]} : kBeyondAscii[data[i] % kBeyondAscii.size()];
  }
  return text;
}

/// Every pattern with ICU's engine for its text. Made once: compiling costs more than matching.
std::vector<std::pair<const CleanerPattern*, IcuPattern>>& patterns() {
  static auto all = [] {
    std::vector<std::pair<const CleanerPattern*, IcuPattern>> made;
    for (const CleanerPattern* pattern :
         {&VCardCleaner::groupPrefixRegex(), &VCardCleaner::danglingFragmentRegex(),
          &VCardCleaner::trailingExtendedHeaderFragmentRegex(), &VCardCleaner::allowedHeaderRegex(),
          &VCardCleaner::anyUpperHeaderRegex(), &VCardCleaner::allowlistPatternRegexes().front()}) {
      made.emplace_back(pattern, IcuPattern(*pattern));
    }
    return made;
  }();
  return all;
}

bool startsAtZero(const CleanerPattern& pattern, const Text& text) {
  const auto first = pattern.firstMatch(text);
  return first && first->range.location == 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The engine takes quadratic time and more.
  constexpr std::size_t kLongest = 1000;
  if (size > kLongest) {
    return 0;
  }
  const Text text = textFrom(data, size);
  for (auto& [ours, theirs] : patterns()) {
    const auto expected = theirs.matches(text);
    demand(!expected || ours->matches(text) == *expected);
  }
  demand(VCardCleaner::startsWithAllowedHeader(text) ==
         startsAtZero(VCardCleaner::allowedHeaderRegex(), text));
  demand(VCardCleaner::startsWithAnyHeader(text) ==
         startsAtZero(VCardCleaner::anyUpperHeaderRegex(), text));

  const auto colon = VCardCleaner::firstUnquotedColonIndex(text);
  demand(!colon || text[*colon] == u':');
  demand(VCardCleaner::propertyNameUpper(text).has_value() == colon.has_value());
  demand(colon || !VCardCleaner::isPlausiblePropertyHeader(text));
  demand(colon || !VCardCleaner::lineUsesQuotedPrintable(text));
  demand(text.starts_with(VCardCleaner::trimTrailingWhitespace(text)));
  const auto unbroken = VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(text);
  demand(text.starts_with(unbroken));
  demand(!VCardCleaner::lineHasQuotedPrintableSoftBreak(text) || text[unbroken.size()] == u'=');
  demand(VCardCleaner::fastContains(text, text));
  demand(VCardCleaner::countColonsIn(text) > 0 ||
         !VCardCleaner::lineLooksLikeStandaloneUriContinuation(text));
  return 0;
}
