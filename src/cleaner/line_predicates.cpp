#include "cleaner/line_predicates.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/character_properties.h"
#include "base/graphemes.h"
#include "base/scan_lanes.h"
#include "base/whitespace.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/characters.h"
#include "cleaner/matching/extended_names.h"
#include "cleaner/matching/header_scanner.h"
#include "cleaner/vocabulary.h"

#include <algorithm>
#include <array>

namespace cardwright {

namespace {

constexpr TextView kQuotedPrintable = u"ENCODING=QUOTED-PRINTABLE";

bool isAsciiText(TextView text) noexcept {
  return std::all_of(text.begin(), text.end(), isAscii);
}

/// Whether an ASCII text holds an upper-case one, letters compared without regard to case.
bool asciiContains(TextView text, TextView upper) noexcept {
  const auto found =
      std::search(text.begin(), text.end(), upper.begin(), upper.end(),
                  [](char16_t unit, char16_t wanted) { return asciiUpper(unit) == wanted; });
  return found != text.end();
}

bool beginsWithAscii(TextView text, TextView lower) noexcept {
  return text.size() >= lower.size() &&
         std::equal(lower.begin(), lower.end(), text.begin(),
                    [](char16_t wanted, char16_t unit) { return asciiLower(unit) == wanted; });
}

/// The line without spaces and tabs at its end, as long as they stand alone.
TextView withoutTrailingBlanks(TextView line) {
  while (endsWithCharacter(line, u' ') || endsWithCharacter(line, u'\t')) {
    line.remove_suffix(1);
  }
  return line;
}

/// Schemes that need no "//" to be taken for a URI.
bool isMessagingScheme(TextView lowerScheme) noexcept {
  constexpr std::array<TextView, 7> kSchemes{
      u"facetime", u"facetime-audio", u"mailto", u"sip", u"sips", u"sms", u"urn"};
  return std::find(kSchemes.begin(), kSchemes.end(), lowerScheme) != kSchemes.end();
}

/// Whether a line begins like a bare URI or holds one.
bool mentionsUri(TextView line) {
  return line.find(u"://") != TextView::npos || beginsWithAscii(line, u"mailto:") ||
         beginsWithAscii(line, u"tel:") || beginsWithAscii(line, u"geo:");
}

/// Whether a name consists of letters, numbers and hyphens. A character is what its first code
/// point is, but a hyphen has to stand alone.
bool consistsOfNameCharacters(TextView name) {
  GraphemeWalker walker(name);
  while (!walker.atEnd()) {
    const std::size_t begin = walker.position();
    const std::size_t end = walker.next();
    const bool isHyphen = end - begin == 1 && name[begin] == u'-';
    if (!isHyphen && !isLetterOrNumber(codePointAt(name, begin))) {
      return false;
    }
  }
  return true;
}

} // namespace

std::size_t firstUnquotedColon(TextView line) {
  bool isQuoted = false;
  for (std::size_t at = findEither(line, 0, '"', ':'); at < line.size();
       at = findEither(line, at + 1, '"', ':')) {
    if (line[at] == u'"') {
      isQuoted = isQuoted != standsAlone(line, at);
    } else if (!isQuoted && standsAlone(line, at)) {
      return at;
    }
  }
  return kNoColon;
}

TextView propertyNameIn(TextView header) {
  header.remove_prefix(groupPrefixLength(header));
  const std::size_t semicolon = findCharacter(header, u';');
  if (semicolon == TextView::npos) {
    return header;
  }
  const TextView name = header.substr(0, semicolon);
  return endsWithCharacter(name, u'\\') ? name.substr(0, name.size() - 1) : name;
}

bool declaresQuotedPrintable(TextView header) {
  if (header.size() < kQuotedPrintable.size()) {
    // No letter has two of these in its upper case.
    return false;
  }
  if (endsWithAsciiIgnoringCase(header, kQuotedPrintable)) {
    return true;
  }
  return isAsciiText(header) ? asciiContains(header, kQuotedPrintable)
                             : upperCased(header).find(kQuotedPrintable) != Text::npos;
}

std::optional<std::size_t> VCardCleaner::firstUnquotedColonIndex(TextView line) {
  const std::size_t colon = firstUnquotedColon(line);
  return colon == kNoColon ? std::nullopt : std::optional(colon);
}

std::optional<Text> VCardCleaner::propertyNameUpper(TextView line) {
  const std::size_t colon = firstUnquotedColon(line);
  if (colon == kNoColon) {
    return std::nullopt;
  }
  return upperCased(propertyNameIn(line.substr(0, colon)));
}

bool VCardCleaner::fastContains(TextView line, TextView substring) {
  return containsIgnoringCase(line, substring);
}

std::int64_t VCardCleaner::countColonsIn(TextView line) {
  return std::count(line.begin(), line.end(), u':');
}

TextView VCardCleaner::trimTrailingWhitespace(TextView line) {
  while (!line.empty() && isWhitespaceOrNewline(line.back())) {
    line = line.substr(0, startOfLastCharacter(line));
  }
  return line;
}

bool VCardCleaner::startsWithAllowedHeader(TextView line) {
  return headerAtStart(line, HeaderNames::allowed).has_value();
}

bool VCardCleaner::startsWithAnyHeader(TextView line) {
  return headerAtStart(line, HeaderNames::anyUpper).has_value();
}

bool VCardCleaner::lineUsesQuotedPrintable(TextView line) {
  const std::size_t colon = firstUnquotedColon(line);
  return colon != kNoColon && declaresQuotedPrintable(line.substr(0, colon));
}

bool VCardCleaner::lineHasQuotedPrintableSoftBreak(TextView line) {
  return endsWithCharacter(withoutTrailingBlanks(line), u'=');
}

TextView VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(TextView line) {
  line = withoutTrailingBlanks(line);
  if (endsWithCharacter(line, u'=')) {
    line.remove_suffix(1);
  }
  return line;
}

bool VCardCleaner::lineLooksLikeStandaloneUriContinuation(TextView line) {
  const TextView trimmedLine = trimWhitespaceAndNewlines(line);
  const std::size_t colon = findCharacter(trimmedLine, u':');
  if (colon == TextView::npos) {
    return false;
  }
  const TextView scheme = trimmedLine.substr(0, colon);
  if (!isUriScheme(scheme)) {
    return false;
  }
  if (trimmedLine.find(u"://") == TextView::npos && !isMessagingScheme(lowerCased(scheme))) {
    return false;
  }
  if (isPropertyName(UpperCasedName(scheme).view())) {
    return false;
  }
  return colon + 1 < trimmedLine.size();
}

bool VCardCleaner::isPlausiblePropertyHeader(TextView line) {
  const std::size_t colon = firstUnquotedColon(line);
  if (colon == kNoColon || colon == 0) {
    return false;
  }
  TextView name = line.substr(0, colon);
  name = name.substr(0, findCharacter(name, u';'));
  if (const std::size_t dot = findCharacter(name, u'.'); dot != TextView::npos) {
    name.remove_prefix(dot + 1);
  }
  if (name.empty() || !isLetter(codePointAt(name, 0))) {
    return false;
  }
  const UpperCasedName upper(name);
  if (!consistsOfNameCharacters(upper.view())) {
    return false;
  }
  return !mentionsUri(line) || kCanonicalNames.contains(upper.view()) ||
         upper.view().ends_with(u"URI") || upper.view().ends_with(u"URL");
}

} // namespace cardwright
