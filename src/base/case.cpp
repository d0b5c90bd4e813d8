#include "base/case.h"

#include "base/text_matcher.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <vector>

namespace cardwright {

namespace {

bool isAsciiText(TextView text) noexcept {
  char16_t all = 0;
  for (const char16_t unit : text) {
    all |= unit;
  }
  return isAscii(all);
}

using CaseMapping = int32_t(UChar*, int32_t, const UChar*, int32_t, const char*, UErrorCode*);

/// End of the piece of a text that ICU, whose lengths are 32 bits wide, is given at once. It lies
/// before a blank or a control: what a letter becomes may depend on its neighbours, but not across
/// these.
std::size_t endOfPiece(TextView text) noexcept {
  constexpr std::size_t kShortest = std::size_t{1} << 20U;
  constexpr std::size_t kLongest = std::size_t{1} << 28U;
  std::size_t end = std::min(text.size(), kShortest);
  while (end < text.size() && end < kLongest && text[end] > u' ') {
    ++end;
  }
  return end;
}

/// Appends the mapping of a piece.
void appendMappedPiece(Text& result, TextView piece, CaseMapping* map) {
  const std::size_t begin = result.size();
  result.resize(begin + piece.size());
  for (;;) {
    UErrorCode status = U_ZERO_ERROR;
    const std::size_t room = result.size() - begin;
    const int32_t length =
        map(reinterpret_cast<UChar*>(result.data() + begin), static_cast<int32_t>(room),
            reinterpret_cast<const UChar*>(piece.data()), static_cast<int32_t>(piece.size()),
            "en_US_POSIX", &status);
    result.resize(begin + static_cast<std::size_t>(length));
    if (static_cast<std::size_t>(length) <= room) {
      return;
    }
  }
}

Text mapped(TextView text, CaseMapping* map, char16_t (*mapAscii)(char16_t)) {
  Text result;
  if (isAsciiText(text)) {
    result.resize(text.size());
    std::transform(text.begin(), text.end(), result.begin(), mapAscii);
    return result;
  }
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t end = endOfPiece(text);
    appendMappedPiece(result, text.substr(0, end), map);
    text.remove_prefix(end);
  }
  return result;
}

/// The full case folding of one code point: one to three code points.
class Folded {
 public:
  explicit Folded(char32_t codePoint) {
    if (codePoint < 0x80) {
      m_units[0] = asciiLower(static_cast<char16_t>(codePoint));
      m_size = 1;
      return;
    }
    std::array<UChar, 2> source{};
    int32_t sourceLength = 0;
    U16_APPEND_UNSAFE(source, sourceLength, static_cast<UChar32>(codePoint));
    UErrorCode status = U_ZERO_ERROR;
    m_size = static_cast<std::size_t>(u_strFoldCase(
        reinterpret_cast<UChar*>(m_units.data()), static_cast<int32_t>(m_units.size()),
        source.data(), sourceLength, U_FOLD_CASE_DEFAULT, &status));
  }

  [[nodiscard]] TextView view() const noexcept { return {m_units.data(), m_size}; }

 private:
  std::array<char16_t, 8> m_units{};
  std::size_t m_size = 0;
};

/// Walks the folded units of a text.
class FoldingReader {
 public:
  FoldingReader(TextView text) : m_text(text) {}

  [[nodiscard]] bool atEnd() const noexcept {
    return m_at == m_text.size() && m_used == m_folded.size();
  }

  /// Whether the next unit begins a character.
  [[nodiscard]] bool isBetweenCharacters() const noexcept { return m_used == m_folded.size(); }

  char16_t next() {
    if (m_used == m_folded.size()) {
      const char32_t codePoint = codePointAt(m_text, m_at);
      m_at += unitLength(codePoint);
      m_current = Folded(codePoint);
      m_folded = m_current.view();
      m_used = 0;
    }
    return m_folded[m_used++];
  }

 private:
  TextView m_text;
  std::size_t m_at = 0;
  Folded m_current{u' '};
  TextView m_folded;
  std::size_t m_used = 0;
};

} // namespace

Text upperCased(TextView text) {
  return mapped(text, u_strToUpper, asciiUpper);
}

Text lowerCased(TextView text) {
  return mapped(text, u_strToLower, asciiLower);
}

UpperCasedName::UpperCasedName(TextView name) {
  const bool isUpper = std::all_of(
      name.begin(), name.end(), [](char16_t unit) { return isAscii(unit) && !isAsciiLower(unit); });
  if (isUpper) {
    m_view = name;
    m_isOriginal = true;
  } else if (name.size() <= m_buffer.size() && isAsciiText(name)) {
    std::transform(name.begin(), name.end(), m_buffer.begin(), asciiUpper);
    m_view = TextView(m_buffer.data(), name.size());
  } else {
    m_long = upperCased(name);
    m_view = m_long;
  }
}

Text caseFolded(TextView text) {
  Text folded;
  folded.reserve(text.size());
  for (FoldingReader reader(text); !reader.atEnd();) {
    folded.push_back(reader.next());
  }
  return folded;
}

bool equalIgnoringCase(TextView a, TextView b) {
  std::size_t i = 0;
  for (;; ++i) {
    if (i == a.size() || i == b.size()) {
      // No character folds to nothing.
      return a.size() == b.size();
    }
    if (!isAscii(a[i]) || !isAscii(b[i])) {
      break;
    }
    if (asciiLower(a[i]) != asciiLower(b[i])) {
      return false;
    }
  }
  FoldingReader restOfA(a.substr(i));
  FoldingReader restOfB(b.substr(i));
  while (!restOfA.atEnd() && !restOfB.atEnd()) {
    if (restOfA.next() != restOfB.next()) {
      return false;
    }
  }
  return restOfA.atEnd() && restOfB.atEnd();
}

std::optional<std::size_t> prefixLengthIgnoringCase(TextView text, std::size_t position,
                                                    TextView lowerAscii) {
  std::size_t at = position;
  std::size_t matched = 0;
  while (matched < lowerAscii.size()) {
    if (at >= text.size()) {
      return std::nullopt;
    }
    if (isAscii(text[at])) {
      if (asciiLower(text[at]) != lowerAscii[matched]) {
        return std::nullopt;
      }
      ++at;
      ++matched;
      continue;
    }
    const char32_t codePoint = codePointAt(text, at);
    const Folded folded(codePoint);
    if (!lowerAscii.substr(matched).starts_with(folded.view())) {
      return std::nullopt;
    }
    at += unitLength(codePoint);
    matched += folded.view().size();
  }
  return at - position;
}

std::optional<FoldedMatch> findIgnoringCase(TextView text, TextView lowerAscii, std::size_t from) {
  if (lowerAscii.empty()) {
    return FoldedMatch{from, 0};
  }
  for (std::size_t position = from; position < text.size(); ++position) {
    const char16_t unit = text[position];
    if (isAscii(unit) && asciiLower(unit) != lowerAscii.front()) {
      continue;
    }
    if (const auto length = prefixLengthIgnoringCase(text, position, lowerAscii)) {
      return FoldedMatch{position, *length};
    }
  }
  return std::nullopt;
}

bool containsIgnoringCase(TextView text, TextView part) {
  Text wanted;
  for (FoldingReader reader(part); !reader.atEnd();) {
    wanted += reader.next();
  }
  if (wanted.empty()) {
    return true;
  }
  TextMatcher matcher(wanted);
  std::vector<bool> beginsCharacter; // for each folded unit so far
  for (FoldingReader reader(text); !reader.atEnd();) {
    beginsCharacter.push_back(reader.isBetweenCharacters());
    if (matcher.take(reader.next()) && reader.isBetweenCharacters() &&
        beginsCharacter[beginsCharacter.size() - wanted.size()]) {
      return true;
    }
  }
  return false;
}

} // namespace cardwright
