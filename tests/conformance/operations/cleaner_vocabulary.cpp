// The cleaner's names and patterns.

#include "cardwright/vcard_cleaner.h"
#include "conformance/operation_table.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <vector>

namespace cardwright::conformance {
namespace {

// Names

using Names = std::span<const TextView>;

template <Names (*names)() noexcept>
Json sortedNames() {
  std::vector<TextView> sorted(names().begin(), names().end());
  std::sort(sorted.begin(), sorted.end());
  return toJson(sorted);
}

bool isTrimmed(char16_t unit) {
  return VCardCleaner::envelopeTrimCharacterSet().contains(unit);
}

// Patterns

[[nodiscard]] Json rangeToJson(const TextRange& range) {
  return toJson(std::array{range.location, range.location + range.length});
}

/// The ranges of every match: the whole, and the capture group of a pattern that has one.
[[nodiscard]] Json matchesOf(const CleanerPattern& pattern, TextView text) {
  return listToJson(pattern.matches(text), [&](const CleanerPattern::Match& match) {
    Json ranges(rapidjson::kArrayType);
    ranges.PushBack(rangeToJson(match.range), jsonAllocator());
    if (pattern.numberOfCaptureGroups() > 0) {
      ranges.PushBack(match.capture ? rangeToJson(*match.capture) : Json(), jsonAllocator());
    }
    return ranges;
  });
}

Json matchesOfAllowlist(TextView text) {
  return listToJson(VCardCleaner::allowlistPatternRegexes(),
                    [&](const CleanerPattern& pattern) { return matchesOf(pattern, text); });
}

template <const CleanerPattern& (*pattern)()>
void addPattern(OperationTable& table, const std::string& name) {
  table.add(
      name + "/pattern", +[]() { return pattern().pattern(); });
  table.add(
      name + "/matches", +[](TextView text) { return matchesOf(pattern(), text); });
}

const OperationFamily kCleanerVocabulary([](OperationTable& table) {
  table.add("VCardCleaner::CRLF", VCardCleaner::CRLF);
  table.add("VCardCleaner::const_memberUpper", VCardCleaner::const_memberUpper);
  table.add("VCardCleaner::minExtendedFragmentLength", VCardCleaner::minExtendedFragmentLength);
  table.add("VCardCleaner::envelopeTrimCharacterSet/contains", isTrimmed);
  table.add("VCardCleaner::allowlistFixedUpper", sortedNames<VCardCleaner::allowlistFixedUpper>);
  table.add("VCardCleaner::canonicalPropertyTokensUpper",
            sortedNames<VCardCleaner::canonicalPropertyTokensUpper>);
  table.add("VCardCleaner::singularPropertiesUpper",
            sortedNames<VCardCleaner::singularPropertiesUpper>);
  table.add(
      "VCardCleaner::allowlistPatternAlternations",
      +[]() { return VCardCleaner::allowlistPatternAlternations(); });
  table.add("VCardCleaner::allowlistPatternRegexes/matches", matchesOfAllowlist);
  addPattern<VCardCleaner::groupPrefixRegex>(table, "VCardCleaner::groupPrefixRegex");
  addPattern<VCardCleaner::danglingFragmentRegex>(table, "VCardCleaner::danglingFragmentRegex");
  addPattern<VCardCleaner::trailingExtendedHeaderFragmentRegex>(
      table, "VCardCleaner::trailingExtendedHeaderFragmentRegex");
  addPattern<VCardCleaner::allowedHeaderRegex>(table, "VCardCleaner::allowedHeaderRegex");
  addPattern<VCardCleaner::anyUpperHeaderRegex>(table, "VCardCleaner::anyUpperHeaderRegex");
});

} // namespace
} // namespace cardwright::conformance
