#include "cleaner/segmentation.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/name_table.h"
#include "base/scan_lanes.h"
#include "base/whitespace.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/characters.h"
#include "cleaner/extended_headers.h"
#include "cleaner/line_name.h"
#include "cleaner/matching/extended_names.h"
#include "cleaner/matching/header_scanner.h"
#include "cleaner/vocabulary.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace cardwright {

namespace {

struct Core {};

/// Names that are cut off only at a clean boundary before them.
constexpr NameTable kCoreNames({
    NameRow<Core>{u"ADR", {}},
    {u"EMAIL", {}},
    {u"FN", {}},
    {u"GEO", {}},
    {u"KEY", {}},
    {u"LOGO", {}},
    {u"N", {}},
    {u"NOTE", {}},
    {u"ORG", {}},
    {u"PHOTO", {}},
    {u"SOUND", {}},
    {u"TEL", {}},
    {u"UID", {}},
    {u"URL", {}},
});

/// The character before a header.
class CharacterBefore {
 public:
  CharacterBefore(TextView text, std::size_t position) : m_character(text.substr(0, position)) {
    m_character.remove_prefix(startOfLastCharacter(m_character));
  }

  [[nodiscard]] bool isLetter() const noexcept {
    return (U_GET_GC_MASK(first()) & U_GC_L_MASK) != 0;
  }
  [[nodiscard]] bool isDecimalDigit() const noexcept {
    return u_charType(first()) == U_DECIMAL_DIGIT_NUMBER;
  }
  /// Whether it is one of these signs, with nothing joined to it.
  [[nodiscard]] bool isOneOf(TextView signs) const noexcept {
    return m_character.size() == 1 && signs.find(m_character.front()) != TextView::npos;
  }

 private:
  [[nodiscard]] UChar32 first() const noexcept {
    return static_cast<UChar32>(codePointAt(m_character, 0));
  }

  TextView m_character;
};

/// Signs of which each, right before a core name, shows that the name belongs to the value.
constexpr TextView kBlockingSigns = u" \t\n\r/:@?#+\\=";

/// Whether a text has the shape of a structured name: four semicolons that nothing escapes.
bool looksLikeStructuredName(TextView text) {
  int semicolons = 0;
  for (std::size_t at = 0; at < text.size() && semicolons < 4; ++at) {
    if (text[at] == u'\\' && standsAlone(text, at)) {
      if (at + 1 < text.size()) {
        at = endOfCharacter(text, at + 1) - 1;
      }
    } else if (text[at] == u';' && standsAlone(text, at)) {
      ++semicolons;
    }
  }
  return semicolons >= 4;
}

/// Where a matched header is to be cut off; absent when it had better not be.
class CutJudge {
 public:
  explicit CutJudge(TextView line)
      : m_line(line), m_isFormattedName(LineName(line).view() == u"FN") {}

  /// @param next start of the following match, or the line's end
  [[nodiscard]] std::optional<std::size_t> cutAt(const HeaderMatch& match, std::size_t next) const {
    if (match.start == 0) {
      return 0;
    }
    // What stands before "item1." in a group label belongs to the value that it was glued to.
    const auto itemLabel = findItemLabel(m_line.substr(match.start, match.name - match.start));
    const std::size_t position = match.start + (itemLabel ? itemLabel->location : 0);
    const UpperCasedName upper(m_line.substr(match.name, match.nameEnd - match.name));
    const TextView name = upper.view();
    const bool isCore = kCoreNames.find(name) != nullptr;
    if (!isCore && isAllowlistedName(name)) {
      return position;
    }
    const CharacterBefore before(m_line, position);
    bool isSafe = false;
    if (name.starts_with(u"X-")) {
      isSafe = before.isDecimalDigit();
    } else if (!isCore) {
      isSafe = !before.isLetter() && !before.isOneOf(u":=\\");
    } else if (before.isLetter()) {
      isSafe = name == u"N" && m_isFormattedName &&
               looksLikeStructuredName(m_line.substr(position, next - position));
    } else {
      isSafe = !before.isOneOf(kBlockingSigns);
    }
    return isSafe ? std::optional(position) : std::nullopt;
  }

 private:
  TextView m_line;
  bool m_isFormattedName;
};

/// Places at which the line may be cut, in order.
std::vector<std::size_t> candidates(TextView line) {
  const CutJudge judge(line);
  std::vector<std::size_t> positions;
  HeaderScanner headers(line, HeaderNames::anyUpper);
  for (std::optional<HeaderMatch> match = headers.next(); match;) {
    const std::optional<HeaderMatch> following = headers.next();
    if (const auto cut = judge.cutAt(*match, following ? following->start : line.size())) {
      positions.push_back(*cut);
    }
    match = following;
  }
  return positions;
}

/// What is known of the property that begins at a place and reaches to the line's end.
struct Beginning {
  bool hasName;       ///< whether a colon outside quotes follows
  bool isAllowlisted; ///< whether the name before it is on the allowlist
};

/// Whether the property that begins with the text has an allowlisted name. No such name holds a
/// sign, so nothing behind the first one matters.
bool beginsWithAllowlistedName(TextView text) {
  const std::size_t end = text.find_first_of(u":;\"");
  if (end == TextView::npos || text[end] == u'"' || !standsAlone(text, end)) {
    return false;
  }
  const TextView header = text.substr(0, text[end] == u';' ? end + 1 : end);
  return isAllowlistedName(UpperCasedName(propertyNameIn(header)).view());
}

/// Looks at the beginnings from the back, each as far as the next one only.
std::vector<Beginning> beginningsAt(TextView line, const std::vector<std::size_t>& positions) {
  std::vector<Beginning> beginnings(positions.size());
  bool hasColonUnquoted = false;
  bool hasColonQuoted = false;
  std::size_t end = line.size();
  for (std::size_t i = positions.size(); i-- > 0; end = positions[i]) {
    bool isQuoted = false;
    bool foundUnquoted = false;
    bool foundQuoted = false;
    for (std::size_t at = positions[i]; at < end; ++at) {
      if ((line[at] == u'"' || line[at] == u':') && standsAlone(line, at)) {
        if (line[at] == u'"') {
          isQuoted = !isQuoted;
        } else {
          (isQuoted ? foundQuoted : foundUnquoted) = true;
        }
      }
    }
    if (isQuoted) {
      std::swap(hasColonUnquoted, hasColonQuoted);
    }
    hasColonUnquoted = hasColonUnquoted || foundUnquoted;
    hasColonQuoted = hasColonQuoted || foundQuoted;
    const bool isAllowlisted =
        hasColonUnquoted && beginsWithAllowlistedName(line.substr(positions[i]));
    beginnings[i] = {hasColonUnquoted, isAllowlisted};
  }
  return beginnings;
}

/// Keeps the places where the property that begins there is trusted.
std::vector<std::size_t> trusted(TextView line, const std::vector<std::size_t>& positions) {
  const std::vector<Beginning> beginnings = beginningsAt(line, positions);
  const bool trustsUnknownNames = LineName(line).view() != u"URL";
  bool isFollowedByAllowlisted = false;
  std::vector<std::size_t> kept;
  for (std::size_t i = positions.size(); i-- > 0;) {
    const bool isTrusted = beginnings[i].isAllowlisted ||
                           (beginnings[i].hasName && trustsUnknownNames && isFollowedByAllowlisted);
    if (isTrusted) {
      kept.push_back(positions[i]);
    }
    isFollowedByAllowlisted = isFollowedByAllowlisted || beginnings[i].isAllowlisted;
  }
  std::reverse(kept.begin(), kept.end());
  return kept;
}

} // namespace

bool isUncutUri(TextView name, TextView value) noexcept {
  // None ends in an allowlisted name that is not a core name; those are told from a value by the
  // letter or colon before them, but for the name of a formatted name.
  constexpr std::array<TextView, 9> kSchemes = {
      u"urn:uuid:", u"tel:", u"https:", u"http:", u"mailto:", u"xmpp:", u"sip:", u"geo:", u"data:"};
  const auto scheme = std::find_if(kSchemes.begin(), kSchemes.end(),
                                   [value](TextView each) { return value.starts_with(each); });
  return scheme != kSchemes.end() && findEither(value, scheme->size(), ':', ':') == value.size() &&
         !equalAsciiIgnoringCase(name, u"FN");
}

bool cutMergedProperties(TextView line, std::vector<TextView>& pieces) {
  pieces.clear();
  if (firstUnquotedColon(line) == kNoColon) {
    return false;
  }
  std::vector<std::size_t> cuts = candidates(line);
  if (cuts.size() < 2 || cuts.front() != 0) {
    return false; // One candidate alone cuts nothing, trusted or not.
  }
  cuts = trusted(line, cuts);
  if (cuts.size() < 2) {
    return false;
  }
  for (std::size_t i = 0; i < cuts.size(); ++i) {
    const std::size_t end = i + 1 < cuts.size() ? cuts[i + 1] : line.size();
    const TextView piece = trimWhitespaceAndNewlines(line.substr(cuts[i], end - cuts[i]));
    if (!piece.empty() && !cutAtExtendedHeaders(piece, pieces)) {
      return false;
    }
  }
  return !pieces.empty();
}

TextList VCardCleaner::segmentMergedLineIfSafe(TextView line) {
  std::vector<TextView> pieces;
  if (!cutMergedProperties(line, pieces)) {
    return {Text(line)};
  }
  return {pieces.begin(), pieces.end()};
}

} // namespace cardwright
