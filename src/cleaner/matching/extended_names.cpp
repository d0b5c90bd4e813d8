#include "cleaner/matching/extended_names.h"

#include "base/ascii.h"
#include "base/whitespace.h"
#include "cleaner/matching/letters.h"

#include <algorithm>

namespace cardwright {

namespace {

constexpr std::size_t kNone = TextView::npos;

/// Where the text ends before the one line end that "$" lets pass.
std::size_t endBeforeLineEnd(TextView text) noexcept {
  if (text.empty()) {
    return 0;
  }
  const char16_t last = text.back();
  if (last == u'\n' && text.size() > 1 && text[text.size() - 2] == u'\r') {
    return text.size() - 2;
  }
  const bool isLineEnd =
      (last >= 0x0A && last <= 0x0D) || last == 0x85 || last == 0x2028 || last == 0x2029;
  return isLineEnd ? text.size() - 1 : text.size();
}

/// Start of the first extended name that ends with the run of name units [begin, end): a prefix
/// with something behind it.
std::size_t startOfExtendedName(TextView text, std::size_t begin, std::size_t end) noexcept {
  const TextView run = text.substr(begin, end - begin);
  for (std::size_t hyphen = run.find(u'-'); hyphen != kNone && hyphen + 1 < run.size();
       hyphen = run.find(u'-', hyphen + 1)) {
    const std::size_t prefix = startOfExtensionPrefix(run, hyphen);
    if (prefix != kNone) {
      return begin + prefix;
    }
  }
  return kNone;
}

} // namespace

std::size_t startOfExtensionPrefix(TextView text, std::size_t hyphen) noexcept {
  const std::size_t end = hyphen + 1;
  const std::size_t shortPrefix = startOfNameEndingAt(text, end, u"X-");
  return shortPrefix != kNone ? shortPrefix : startOfNameEndingAt(text, end, u"VND-");
}

std::size_t startOfNumberedConfigName(TextView text, std::size_t end) noexcept {
  const std::size_t digitsEnd = startOfNameEndingAt(text, end, u"-SENSITIVE-CONTENT-CONFIG");
  if (digitsEnd == kNone) {
    return kNone;
  }
  std::size_t digits = digitsEnd;
  while (digits > 0 && isAsciiDigit(text[digits - 1])) {
    --digits;
  }
  return digits == digitsEnd ? kNone : startOfNameEndingAt(text, digits, u"VND-");
}

std::size_t numberedConfigNameLength(TextView text) noexcept {
  const std::size_t end = endBeforeLineEnd(text);
  return startOfNumberedConfigName(text, end) == 0 ? end : 0;
}

std::size_t groupPrefixLength(TextView text) noexcept {
  constexpr std::size_t kLongestLabel = 10;
  if (text.empty() || !isNameLetter(text.front())) {
    return 0;
  }
  std::size_t end = 1;
  while (end < std::min(kLongestLabel, text.size()) && isNameUnit(text[end])) {
    ++end;
  }
  return end < text.size() && text[end] == u'.' ? end + 1 : 0;
}

std::optional<TextRange> findDanglingFragment(TextView text) noexcept {
  const std::size_t end = endBeforeLineEnd(text);
  std::size_t begin = end;
  while (begin > 0 && isNameUnit(text[begin - 1])) {
    --begin;
  }
  const std::size_t start = startOfExtendedName(text, begin, end);
  return start == kNone ? std::nullopt : std::optional(TextRange{start, end - start});
}

std::optional<TextRange> findTrailingHeaderFragment(TextView text) noexcept {
  std::size_t blanks = text.size();
  while (blanks > 0 && isWhitespaceOrNewline(text[blanks - 1])) {
    --blanks;
  }
  // Parameters hold neither a colon nor a line break, so nothing before the last of these matters.
  std::size_t begin = blanks;
  while (begin > 0 && text[begin - 1] != u':' && !isLineTerminator(text[begin - 1])) {
    --begin;
  }
  while (begin < blanks) {
    std::size_t end = begin;
    while (end < blanks && isNameUnit(text[end])) {
      ++end;
    }
    if (end == blanks || text[end] == u';') {
      const std::size_t start = startOfExtendedName(text, begin, end);
      if (start != kNone) {
        return TextRange{start, text.size() - start};
      }
    }
    begin = end + 1;
  }
  return std::nullopt;
}

std::optional<TextRange> findItemLabel(TextView text) noexcept {
  constexpr TextView kItem = u"ITEM";
  constexpr std::size_t kMostDigits = 4;
  // Looked for from the dot: digits before it, and "item" before those.
  for (std::size_t dot = text.find(u'.'); dot != kNone; dot = text.find(u'.', dot + 1)) {
    std::size_t digits = dot;
    while (digits > 0 && dot - digits < kMostDigits && isAsciiDigit(text[digits - 1])) {
      --digits;
    }
    const std::size_t start = digits == dot ? kNone : startOfNameEndingAt(text, digits, kItem);
    if (start != kNone) {
      return TextRange{start, dot + 1 - start};
    }
  }
  return std::nullopt;
}

bool isUriScheme(TextView text) noexcept {
  const TextView scheme = text.substr(0, endBeforeLineEnd(text));
  return !scheme.empty() && isAsciiLetter(scheme.front()) &&
         std::all_of(scheme.begin(), scheme.end(), [](char16_t unit) {
           return isAsciiLetter(unit) || isAsciiDigit(unit) || unit == u'+' || unit == u'.' ||
                  unit == u'-';
         });
}

} // namespace cardwright
