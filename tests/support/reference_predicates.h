#pragma once

#include "base/case.h"
#include "base/character_properties.h"
#include "cardwright/vcard_cleaner.h"
#include "support/icu_pattern.h"
#include "support/reference_characters.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace cardwright {

/// The predicates in their plainest form: lists of characters, copies, ICU's engine.
class ReferencePredicates {
 public:
  std::optional<std::size_t> firstColon(TextView line) {
    std::size_t position = 0;
    bool isQuoted = false;
    for (const Text& character : m_characters.of(line)) {
      if (character == u"\"") {
        isQuoted = !isQuoted;
      } else if (character == u":" && !isQuoted) {
        return position;
      }
      position += character.size();
    }
    return std::nullopt;
  }

  std::optional<Text> name(TextView line) {
    const auto colon = firstColon(line);
    if (!colon) {
      return std::nullopt;
    }
    Text rest(line.substr(0, *colon));
    const auto label = m_groupPrefix.matches(rest);
    if (!label->empty() && label->front().range.location == 0) {
      rest.erase(0, label->front().range.length);
    }
    Characters characters = m_characters.of(rest);
    const auto semicolon = std::find(characters.begin(), characters.end(), u";");
    if (semicolon != characters.end()) {
      characters.erase(semicolon, characters.end());
      // Cut off from what followed, the last character may be another one.
      characters = m_characters.of(joined(characters));
      if (!characters.empty() && characters.back() == u"\\") {
        characters.pop_back();
      }
    }
    return upperCased(joined(characters));
  }

  Text withoutBlanks(TextView line) {
    Characters characters = m_characters.of(line);
    while (!characters.empty() && (characters.back() == u" " || characters.back() == u"\t")) {
      characters.pop_back();
    }
    return joined(characters);
  }

  bool hasSoftBreak(TextView line) {
    const Characters characters = m_characters.of(withoutBlanks(line));
    return !characters.empty() && characters.back() == u"=";
  }

  Text withoutSoftBreak(TextView line) {
    Text rest = withoutBlanks(line);
    if (hasSoftBreak(rest)) {
      rest.pop_back();
    }
    return rest;
  }

  bool isPlausible(TextView line) {
    const auto colon = firstColon(line);
    if (!colon || *colon == 0) {
      return false;
    }
    Characters characters = m_characters.of(line.substr(0, *colon));
    characters.erase(std::find(characters.begin(), characters.end(), u";"), characters.end());
    characters = m_characters.of(joined(characters));
    const auto dot = std::find(characters.begin(), characters.end(), u".");
    if (dot != characters.end()) {
      characters.erase(characters.begin(), dot + 1);
    }
    if (characters.empty() || !isLetter(codePointAt(characters.front(), 0))) {
      return false;
    }
    const Text upper = upperCased(joined(characters));
    for (const Text& character : m_characters.of(upper)) {
      if (character != u"-" && !isLetterOrNumber(codePointAt(character, 0))) {
        return false;
      }
    }
    const Text lower = lowerCased(line);
    const bool looksLikeUri = lower.find(u"://") != Text::npos || lower.starts_with(u"mailto:") ||
                              lower.starts_with(u"tel:") || lower.starts_with(u"geo:");
    return !looksLikeUri || isCanonical(upper) || upper.ends_with(u"URI") ||
           upper.ends_with(u"URL");
  }

  Text trimmed(TextView line) {
    Characters characters = m_characters.of(line);
    while (!characters.empty() &&
           TextView(u"\t\n\u000B\f\r \u0085\u00A0\u2028").find(characters.back().back()) !=
               TextView::npos) {
      characters.pop_back();
    }
    return joined(characters);
  }

  bool isUriContinuation(TextView line) {
    TextView rest = line;
    const TextView blanks = u"\t\n\u000B\f\r \u0085\u00A0\u2028";
    while (!rest.empty() && blanks.find(rest.front()) != TextView::npos) {
      rest.remove_prefix(1);
    }
    while (!rest.empty() && blanks.find(rest.back()) != TextView::npos) {
      rest.remove_suffix(1);
    }
    const Characters characters = m_characters.of(rest);
    const auto colon = std::find(characters.begin(), characters.end(), u":");
    if (colon == characters.end()) {
      return false;
    }
    const Text scheme = joined(Characters(characters.begin(), colon));
    if (m_scheme.matches(scheme)->empty()) {
      return false;
    }
    const std::array<TextView, 7> plain{u"urn",  u"facetime", u"facetime-audio", u"mailto", u"sip",
                                        u"sips", u"sms"};
    if (rest.find(u"://") == TextView::npos &&
        std::find(plain.begin(), plain.end(), lowerCased(scheme)) == plain.end()) {
      return false;
    }
    const Text upper = upperCased(scheme);
    return !isCanonical(upper) && !upper.starts_with(u"X-") && !upper.starts_with(u"VND-") &&
           colon + 1 != characters.end();
  }

  bool usesQuotedPrintable(TextView line) {
    const auto colon = firstColon(line);
    return colon &&
           upperCased(line.substr(0, *colon)).find(u"ENCODING=QUOTED-PRINTABLE") != Text::npos;
  }

  static bool startsWith(IcuPattern& pattern, TextView line) {
    const auto found = pattern.matches(line);
    return !found->empty() && found->front().range.location == 0;
  }

 private:
  using Characters = std::vector<Text>;

  static Text joined(const Characters& characters) {
    Text all;
    for (const Text& character : characters) {
      all += character;
    }
    return all;
  }

  static bool isCanonical(TextView upper) {
    const auto names = VCardCleaner::canonicalPropertyTokensUpper();
    return std::find(names.begin(), names.end(), upper) != names.end();
  }

  ReferenceCharacters m_characters;
  IcuPattern m_groupPrefix{VCardCleaner::groupPrefixRegex()};
  IcuPattern m_scheme{u"^[A-Za-z][A-Za-z0-9+.-]*$", false};
};

} // namespace cardwright
