#include "base/ascii.h"
#include "base/case.h"
#include "base/character_properties.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/vocabulary.h"
#include "support/icu_pattern.h"
#include "support/reference_characters.h"
#include "support/text_printer.h"
#include "support/token_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace cardwright {
namespace {

using Characters = std::vector<Text>;

/// The predicates in their plainest form: lists of characters, copies, ICU's engine.
class Reference {
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

 private:
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

const std::vector<TextView> kSigns{u":", u"\"", u";",  u".",  u"\\",     u"=",      u" ",
                                   u"-", u"a",  u"\r", u"\n", u"\u0301", u"\u0600", u"\u00A0"};
constexpr std::size_t kLongestOfSigns = 5;

TEST(LinePredicates, agreeWithTheReferenceOnAllShortTextsOfSigns) {
  Reference reference;
  const std::size_t visited = forEachTextOf(kSigns, kLongestOfSigns, [&](const Text& line) {
    ASSERT_EQ(VCardCleaner::firstUnquotedColonIndex(line), reference.firstColon(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::propertyNameUpper(line), reference.name(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::lineHasQuotedPrintableSoftBreak(line), reference.hasSoftBreak(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom(line),
              reference.withoutSoftBreak(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::isPlausiblePropertyHeader(line), reference.isPlausible(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::trimTrailingWhitespace(line), reference.trimmed(line))
        << testing::PrintToString(line);
  });
  EXPECT_EQ(visited, 1U + 14U + 196U + 2744U + 38416U + 537824U);
}

TEST(LinePredicates, agreeWithTheReferenceOnAllShortTextsOfWords) {
  const std::vector<TextView> kWords{u"http",   u"://", u":",   u"mailto", u"sip",
                                     u"URN",    u"X-",  u"URL", u"tel",    u";",
                                     u"item1.", u" ",   u"\n",  u"é",      u"\u0301"};
  Reference reference;
  IcuPattern allowed(VCardCleaner::allowedHeaderRegex());
  IcuPattern anyUpper(VCardCleaner::anyUpperHeaderRegex());
  forEachTextOf(kWords, 4, [&](const Text& line) {
    ASSERT_EQ(VCardCleaner::lineLooksLikeStandaloneUriContinuation(line),
              reference.isUriContinuation(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::isPlausiblePropertyHeader(line), reference.isPlausible(line))
        << testing::PrintToString(line);
    ASSERT_EQ(VCardCleaner::propertyNameUpper(line), reference.name(line))
        << testing::PrintToString(line);
    for (auto* engine : {&allowed, &anyUpper}) {
      const auto found = engine->matches(line);
      ASSERT_EQ(engine == &allowed ? VCardCleaner::startsWithAllowedHeader(line)
                                   : VCardCleaner::startsWithAnyHeader(line),
                !found->empty() && found->front().range.location == 0)
          << testing::PrintToString(line);
    }
  });
}

/// Whether some part of the text, cut between characters, folds to the same as the other one.
bool containsByFolding(TextView text, TextView part) {
  const auto isInsideAPair = [text](std::size_t at) {
    return at > 0 && at < text.size() && isHighSurrogate(text[at - 1]) && isLowSurrogate(text[at]);
  };
  for (std::size_t begin = 0; begin <= text.size(); ++begin) {
    for (std::size_t end = begin; end <= text.size(); ++end) {
      if (!isInsideAPair(begin) && !isInsideAPair(end) &&
          equalIgnoringCase(text.substr(begin, end - begin), part)) {
        return true;
      }
    }
  }
  return false;
}

TEST(LinePredicates, findTextsLikeTheReference) {
  const std::vector<TextView> kLetters{u"f", u"I", u"s", u"\uFB01", u"\u00DF", u"\U00010400"};
  forEachTextOf(kLetters, 4, [&](const Text& text) {
    forEachTextOf(kLetters, 2, [&](const Text& part) {
      ASSERT_EQ(VCardCleaner::fastContains(text, part), containsByFolding(text, part))
          << testing::PrintToString(text) << " " << testing::PrintToString(part);
    });
  });
}

} // namespace
} // namespace cardwright
