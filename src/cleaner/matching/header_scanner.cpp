#include "cleaner/matching/header_scanner.h"

#include "cleaner/matching/extended_names.h"
#include "cleaner/matching/letters.h"
#include "cleaner/vocabulary.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace cardwright {

namespace {

constexpr std::size_t kNone = TextView::npos;
constexpr std::size_t kLongestLabel = 10;

/// Names by their last letter, and longest first within a letter: the first that stands before a
/// place begins furthest to the left.
template <std::size_t Count>
class NamesByLastLetter {
 public:
  explicit constexpr NamesByLastLetter(const std::array<TextView, Count>& names) : m_names(names) {
    std::sort(m_names.begin(), m_names.end(), [](TextView a, TextView b) {
      return a.back() != b.back() ? a.back() < b.back() : a.size() > b.size();
    });
    std::size_t next = 0;
    for (std::size_t letter = 0; letter < 26; ++letter) {
      while (next < Count && m_names[next].back() == u'A' + letter) {
        ++next;
      }
      m_ends[letter + 1] = static_cast<std::uint8_t>(next);
    }
    m_isComplete = next == Count;
  }

  /// Whether every name ends in a letter and so can be found.
  [[nodiscard]] constexpr bool isComplete() const noexcept { return m_isComplete; }

  /// Start of the longest name that ends at `end`, or none.
  [[nodiscard]] std::size_t startBefore(TextView text, std::size_t end,
                                        char16_t lastLetter) const noexcept {
    const auto letter = static_cast<std::size_t>(lastLetter - u'A');
    for (std::size_t i = m_ends[letter]; i < m_ends[letter + 1]; ++i) {
      const std::size_t start = startOfNameEndingAt(text, end, m_names[i]);
      if (start != kNone) {
        return start;
      }
    }
    return kNone;
  }

 private:
  std::array<TextView, Count> m_names;
  std::array<std::uint8_t, 27> m_ends{};
  bool m_isComplete = false;
};

constexpr NamesByLastLetter kStandardByLetter(kStandardNames);
constexpr NamesByLastLetter kAllowlistedByLetter(kAllowlistedNames.names());
static_assert(kStandardByLetter.isComplete() && kAllowlistedByLetter.isComplete());

/// The unit's last letter in upper case, or 0.
char16_t lastLetterOf(char16_t unit) noexcept {
  if (isAscii(unit)) {
    return isAsciiLetter(unit) ? asciiUpper(unit) : char16_t{0};
  }
  const TextView folding = asciiFolding(unit);
  return folding.empty() ? char16_t{0} : folding.back();
}

std::size_t startOfAllowedName(TextView text, std::size_t end) noexcept {
  const char16_t letter = lastLetterOf(text[end - 1]);
  if (letter == 0) {
    return kNone;
  }
  const std::size_t start = kAllowlistedByLetter.startBefore(text, end, letter);
  return start != kNone ? start : startOfNumberedConfigName(text, end);
}

/// Start of the standard or extended name that ends at `end`, or none. An extended name holds no
/// further prefix, so it begins at the last one, and no standard name holds any.
std::size_t startOfAnyName(TextView text, std::size_t end) noexcept {
  for (std::size_t at = end; at > 0 && isNameUnit(text[at - 1]); --at) {
    if (text[at - 1] != u'-') {
      continue;
    }
    const std::size_t prefix = startOfExtensionPrefix(text, at - 1);
    if (prefix != kNone) {
      return at < end ? prefix : kNone;
    }
  }
  const char16_t letter = lastLetterOf(text[end - 1]);
  return letter == 0 ? kNone : kStandardByLetter.startBefore(text, end, letter);
}

/// Where a header whose name begins at `name` begins: at its group label when there is one. A
/// longer run of letters before the dot ends in a label too.
std::size_t startOfHeader(TextView text, std::size_t name) noexcept {
  std::size_t start = name;
  if (name > 0 && text[name - 1] == u'.') {
    std::size_t at = name - 1;
    for (std::size_t length = 0; length < kLongestLabel && at > 0 && isNameUnit(text[at - 1]);
         ++length) {
      --at;
      if (isNameLetter(text[at])) {
        start = at;
      }
    }
  }
  return start;
}

/// The next ":" or ";", or the text's end.
std::size_t findDelimiter(TextView text, std::size_t from) noexcept {
  // The two differ in one bit. Whole blocks without any are passed over at once.
  const auto isDelimiter = [](char16_t unit) { return (unit | 1U) == u';'; };
  constexpr std::size_t kBlock = 32;
  std::size_t at = from;
  while (at + kBlock <= text.size()) {
    unsigned found = 0;
    for (std::size_t i = 0; i < kBlock; ++i) {
      found |= isDelimiter(text[at + i]) ? 1U : 0U;
    }
    if (found != 0) {
      break;
    }
    at += kBlock;
  }
  while (at < text.size() && !isDelimiter(text[at])) {
    ++at;
  }
  return at;
}

} // namespace

std::optional<HeaderMatch> HeaderScanner::next() noexcept {
  for (;;) {
    const std::size_t delimiter = findDelimiter(m_text, m_at);
    if (delimiter == m_text.size()) {
      m_at = delimiter;
      return std::nullopt;
    }
    m_at = delimiter + 1;
    const auto header = headerWithNameBefore(delimiter);
    if (header) {
      m_from = header->end;
      m_at = header->end;
      return header;
    }
  }
}

std::optional<HeaderMatch> HeaderScanner::headerWithNameBefore(std::size_t delimiter) noexcept {
  const bool hasParameters = m_text[delimiter] == u';';
  const bool isEscaped = hasParameters && delimiter > m_from && m_text[delimiter - 1] == u'\\';
  const std::size_t nameEnd = isEscaped ? delimiter - 1 : delimiter;
  if (nameEnd == m_from) {
    return std::nullopt;
  }
  const std::size_t name = m_names == HeaderNames::allowed ? startOfAllowedName(m_text, nameEnd)
                                                           : startOfAnyName(m_text, nameEnd);
  if (name == kNone) {
    return std::nullopt;
  }
  std::size_t colon = delimiter;
  if (hasParameters) {
    // "N" is the one name of a single letter. So short a name is only believed when what follows
    // are parameters indeed.
    if (nameEnd - name == 1 && !m_parameters.reachesColon(delimiter)) {
      return std::nullopt;
    }
    colon = m_tail.colonBehind(delimiter + 1);
    if (colon == kNone) {
      return std::nullopt;
    }
  }
  return HeaderMatch{startOfHeader(m_text, name), name, nameEnd, colon + 1};
}

std::optional<HeaderMatch> headerAtStart(TextView text, HeaderNames names) noexcept {
  const std::size_t delimiter = findDelimiter(text, 0);
  if (delimiter == text.size()) {
    return std::nullopt;
  }
  const auto header = HeaderScanner(text, names).headerWithNameBefore(delimiter);
  return header && header->start == 0 ? header : std::nullopt;
}

bool mayHoldStandardHeader(TextView text) noexcept {
  for (std::size_t at = findDelimiter(text, 0); at < text.size();
       at = findDelimiter(text, at + 1)) {
    const bool isEscaped = text[at] == u';' && at > 0 && text[at - 1] == u'\\';
    const std::size_t nameEnd = isEscaped ? at - 1 : at;
    const char16_t letter = nameEnd > 0 ? lastLetterOf(text[nameEnd - 1]) : char16_t{0};
    if (letter != 0 && kStandardByLetter.startBefore(text, nameEnd, letter) != kNone) {
      return true;
    }
  }
  return false;
}

bool holdsTwoHeaders(TextView text) noexcept {
  HeaderScanner scanner(text, HeaderNames::anyUpper);
  return scanner.next() && scanner.next();
}

} // namespace cardwright
