#include "cardwright/cleaner_pattern.h"

#include "cleaner/matching/extended_names.h"
#include "cleaner/matching/header_scanner.h"

#include <utility>

namespace cardwright {

namespace {

using Match = CleanerPattern::Match;

TextRange rangeBetween(std::size_t begin, std::size_t end) noexcept {
  return {begin, end - begin};
}

/// The match of a pattern that is tied to the text's start, unless nothing was found.
std::optional<Match> matchAtStart(std::size_t length) {
  return length == 0 ? std::nullopt : std::optional(Match{{0, length}, std::nullopt});
}

/// The match of a pattern that is one group as a whole.
std::optional<Match> capturedMatch(std::optional<TextRange> range) {
  return range ? std::optional(Match{*range, range}) : std::nullopt;
}

/// Hands each match to `visit` until that returns false.
template <typename Visit>
void visitMatches(CleanerPattern::Kind kind, TextView text, Visit visit) {
  std::optional<Match> onlyMatch;
  switch (kind) {
  case CleanerPattern::Kind::groupPrefix:
    onlyMatch = matchAtStart(groupPrefixLength(text));
    break;
  case CleanerPattern::Kind::numberedConfigName:
    onlyMatch = matchAtStart(numberedConfigNameLength(text));
    break;
  case CleanerPattern::Kind::danglingFragment:
    onlyMatch = capturedMatch(findDanglingFragment(text));
    break;
  case CleanerPattern::Kind::trailingHeaderFragment:
    onlyMatch = capturedMatch(findTrailingHeaderFragment(text));
    break;
  case CleanerPattern::Kind::allowedHeader:
  case CleanerPattern::Kind::anyUpperHeader: {
    const bool capturesName = kind == CleanerPattern::Kind::anyUpperHeader;
    HeaderScanner scanner(text, capturesName ? HeaderNames::anyUpper : HeaderNames::allowed);
    while (const auto header = scanner.next()) {
      const auto name =
          capturesName ? std::optional(rangeBetween(header->name, header->nameEnd)) : std::nullopt;
      if (!visit(Match{rangeBetween(header->start, header->end), name})) {
        return;
      }
    }
    return;
  }
  }
  if (onlyMatch) {
    visit(*onlyMatch);
  }
}

} // namespace

CleanerPattern::CleanerPattern(Kind kind, Text pattern, bool ignoresCase)
    : m_pattern(std::move(pattern)), m_kind(kind), m_ignoresCase(ignoresCase) {}

std::size_t CleanerPattern::numberOfCaptureGroups() const noexcept {
  switch (m_kind) {
  case Kind::danglingFragment:
  case Kind::trailingHeaderFragment:
  case Kind::anyUpperHeader:
    return 1;
  default:
    return 0;
  }
}

std::optional<CleanerPattern::Match> CleanerPattern::firstMatch(TextView text) const {
  std::optional<Match> first;
  visitMatches(m_kind, text, [&first](const Match& match) {
    first = match;
    return false;
  });
  return first;
}

std::vector<CleanerPattern::Match> CleanerPattern::matches(TextView text) const {
  std::vector<Match> all;
  visitMatches(m_kind, text, [&all](const Match& match) {
    all.push_back(match);
    return true;
  });
  return all;
}

} // namespace cardwright
