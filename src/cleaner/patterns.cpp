#include "cardwright/cleaner_pattern.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/vocabulary.h"

#include <algorithm>
#include <array>
#include <vector>

// The texts of the patterns, as they are handed out. What finds their matches is in matching/.

namespace cardwright {

namespace {

using Kind = CleanerPattern::Kind;

constexpr TextView kOptionalGroupLabel = u"(?:(?>[A-Za-z][A-Za-z0-9-]{0,9})\\.)?";
constexpr TextView kParameterTail = u"(?:(?:\\\\?;)(?:[^:\"\\r\\n]|\"[^\"\\r\\n]*\")*?)?";
/// So short a name needs more behind it to be believed.
constexpr TextView kNameN = u"N(?=(?:\\\\?;[A-Za-z0-9-]+=(?:[^;:\"\\r\\n]|\"[^\"\\r\\n]*\")*)*:)";

Text concatenated(std::initializer_list<TextView> parts) {
  Text all;
  for (const TextView part : parts) {
    all += part;
  }
  return all;
}

/// The names, none of which holds a character with a meaning in patterns, joined with "|".
template <typename Names>
Text alternatives(const Names& names) {
  Text all;
  for (const TextView name : names) {
    all += all.empty() ? TextView() : TextView(u"|");
    all += name == u"N" ? kNameN : name;
  }
  return all;
}

CleanerPattern makeAllowedHeader() {
  auto names = kAllowlistedNames.names();
  std::stable_sort(names.begin(), names.end(),
                   [](TextView a, TextView b) { return a.size() > b.size(); });
  Text all = alternatives(names);
  for (const TextView alternation : kNumberedNameAlternations) {
    all += concatenated({u"|(?:", alternation, u")"});
  }
  return {Kind::allowedHeader,
          concatenated({u"(?i)", kOptionalGroupLabel, u"(?:", all, u")", kParameterTail, u":"}),
          false};
}

CleanerPattern makeAnyUpperHeader() {
  return {Kind::anyUpperHeader,
          concatenated({u"(?i)", kOptionalGroupLabel, u"((?:", alternatives(kStandardNames),
                        u")|(?:X-|VND-)(?:(?!X-|VND-)[A-Z0-9-])+)", kParameterTail, u":"}),
          false};
}

} // namespace

std::span<const CleanerPattern> VCardCleaner::allowlistPatternRegexes() {
  static const std::vector<CleanerPattern> patterns = [] {
    std::vector<CleanerPattern> made;
    made.reserve(kNumberedNameAlternations.size());
    for (const TextView alternation : kNumberedNameAlternations) {
      made.emplace_back(Kind::numberedConfigName, concatenated({u"^", alternation, u"$"}), true);
    }
    return made;
  }();
  return patterns;
}

const CleanerPattern& VCardCleaner::groupPrefixRegex() {
  static const CleanerPattern pattern(Kind::groupPrefix, u"(?i)^(?>[A-Za-z][A-Za-z0-9-]{0,9})\\.",
                                      false);
  return pattern;
}

const CleanerPattern& VCardCleaner::danglingFragmentRegex() {
  static const CleanerPattern pattern(Kind::danglingFragment, u"((?:X-|VND-)[A-Z0-9-]+)$", true);
  return pattern;
}

const CleanerPattern& VCardCleaner::trailingExtendedHeaderFragmentRegex() {
  static const CleanerPattern pattern(Kind::trailingHeaderFragment,
                                      u"(?i)((?:X-|VND-)[A-Z0-9-]+(?:;[^:\\r\\n]*)?\\s*)$", false);
  return pattern;
}

const CleanerPattern& VCardCleaner::allowedHeaderRegex() {
  static const CleanerPattern pattern = makeAllowedHeader();
  return pattern;
}

const CleanerPattern& VCardCleaner::anyUpperHeaderRegex() {
  static const CleanerPattern pattern = makeAnyUpperHeader();
  return pattern;
}

} // namespace cardwright
