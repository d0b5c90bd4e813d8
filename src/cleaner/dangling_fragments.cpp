#include "base/ascii.h"
#include "base/case.h"
#include "base/graphemes.h"
#include "base/whitespace.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/characters.h"
#include "cleaner/matching/extended_names.h"
#include "cleaner/vocabulary.h"

#include <unicode/uchar.h>

namespace cardwright {

namespace {

/// Finds the fragment at the end of a value that grows shorter. Parameters reach over the stretch
/// behind the last colon or line break: it is searched once, and after that, as long as the value
/// ends in it, only a bare name at the very end is left to be found.
class FragmentFinder {
 public:
  [[nodiscard]] std::optional<TextRange> find(TextView value) {
    if (value.size() > m_stretch) {
      return findDanglingFragment(value);
    }
    m_stretch = value.size();
    while (m_stretch > 0 && isWhitespaceOrNewline(value[m_stretch - 1])) {
      --m_stretch;
    }
    while (m_stretch > 0 && value[m_stretch - 1] != u':' &&
           !isLineTerminator(value[m_stretch - 1])) {
      --m_stretch;
    }
    return findTrailingHeaderFragment(value);
  }

 private:
  std::size_t m_stretch = TextView::npos; ///< where the stretch begins that was searched last
};

bool endsInWhiteSpace(TextView text) {
  const char32_t first = codePointAt(text, startOfLastCharacter(text));
  return u_isUWhiteSpace(static_cast<UChar32>(first)) != 0;
}

/// Whether a fragment, parameters and all, is what a lost line break leaves of a known property.
bool isTornHeader(TextView fragment) {
  const TextView header = trimWhitespaceAndNewlines(fragment);
  const UpperCasedName upper(header.substr(0, findCharacter(header, u';')));
  const TextView name = upper.view();
  return isExtensionName(name) &&
         name.size() >= static_cast<std::size_t>(kMinExtendedFragmentLength) &&
         isAllowlistedName(name);
}

} // namespace

TextView VCardCleaner::trimDanglingExtendedFragmentsInValue(TextView value) {
  FragmentFinder finder;
  for (;;) {
    const std::optional<TextRange> fragment = finder.find(value);
    if (!fragment || fragment->location == 0) {
      return value;
    }
    const TextView before = value.substr(0, fragment->location);
    if (endsInWhiteSpace(before) ||
        !isTornHeader(value.substr(fragment->location, fragment->length))) {
      return value;
    }
    value = trimTrailingWhitespace(before);
  }
}

} // namespace cardwright
