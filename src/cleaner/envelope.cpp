#include "cleaner/envelope.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/whitespace.h"
#include "cardwright/vcard_cleaner.h"

#include <algorithm>

namespace cardwright {

namespace {

constexpr TextView kBegin = u"BEGIN:VCARD";
constexpr TextView kEnd = u"END:VCARD";

/// Whether a text, upper-cased, begins with an upper-case ASCII one. No letter maps to less than
/// one unit, so only so many units matter.
bool beginsUpperCased(TextView text, TextView upper) {
  text = text.substr(0, upper.size());
  for (std::size_t i = 0; i < text.size() && isAscii(text[i]); ++i) {
    if (asciiUpper(text[i]) != upper[i]) {
      return false;
    }
    if (i + 1 == upper.size()) {
      return true;
    }
  }
  return upperCased(text).starts_with(upper);
}

bool endsUpperCased(TextView text, TextView upper) {
  text = text.substr(text.size() - std::min(text.size(), upper.size()));
  return upperCased(text).ends_with(upper);
}

TextView withoutSurroundings(TextView text) {
  const CharacterSet& set = VCardCleaner::envelopeTrimCharacterSet();
  return trimmed(text, [&set](char16_t unit) {
    return isAscii(unit) ? isWhitespaceOrNewline(unit) : set.contains(unit);
  });
}

} // namespace

bool isCardBegin(TextView line) {
  return beginsUpperCased(line, kBegin);
}

bool isCardEnd(TextView line) {
  return beginsUpperCased(line, kEnd);
}

bool isEnvelopeOfCards(TextView text) {
  const TextView cards = withoutSurroundings(text);
  // Upper-casing and case folding part ways for a few letters outside ASCII, so both are asked.
  return beginsUpperCased(cards, kBegin) && endsUpperCased(cards, kEnd) &&
         findIgnoringCase(cards, u"begin:vcard") && findIgnoringCase(cards, u"end:vcard");
}

std::optional<TextRange> findForeignLine(TextView text) {
  bool isInCard = false;
  bool hasCards = false;
  std::optional<TextRange> foreign;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find_first_of(u"\r\n", begin), text.size());
    const TextView line = withoutSurroundings(text.substr(begin, end - begin));
    if (isCardBegin(line)) {
      if (foreign && !hasCards) {
        return foreign;
      }
      // What stands between two cards does no harm.
      foreign.reset();
      hasCards = true;
      isInCard = true;
    } else if (isInCard) {
      isInCard = !isCardEnd(line);
    } else if (!line.empty() && !foreign) {
      foreign = TextRange{begin, end - begin};
    }
    begin = end + 1;
  }
  return hasCards ? foreign : std::nullopt;
}

} // namespace cardwright
