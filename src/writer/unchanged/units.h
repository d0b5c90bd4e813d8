#pragma once

#include "base/ascii.h"
#include "base/scan_lanes.h"
#include "cardwright/text.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace cardwright {

/// Operations on Units may write this many behind what they append.
inline constexpr std::size_t kWrittenBeyond = 32;
static_assert(kCopiedBeyond <= kWrittenBeyond);

/// Takes units without a look at whether they fit: the line that they come from tells how many
/// there may be at most.
class Units {
 public:
  explicit Units(char16_t* units) noexcept : m_begin(units), m_end(units) {}

  void append(TextView text) noexcept {
    // Most are short, and a call takes its time.
    for (const char16_t unit : text) {
      *m_end++ = unit;
    }
  }
  void appendUpper(TextView word) noexcept {
    m_end = std::transform(word.begin(), word.end(), m_end, asciiUpper);
  }
  void append(std::size_t count, char16_t unit) noexcept {
    m_end = std::fill_n(m_end, count, unit);
  }
  void push_back(char16_t unit) noexcept { *m_end++ = unit; }
  /// Appends a text of which whole blocks of kWrittenBeyond may be read.
  void appendBlocks(TextView text) noexcept {
    constexpr std::size_t kBlock = 32;
    static_assert(kBlock <= kWrittenBeyond);
    for (std::size_t at = 0; at < text.size(); at += kBlock) {
      std::memcpy(m_end + at, text.data() + at, kBlock * sizeof(char16_t));
    }
    m_end += text.size();
  }
  /// Appends up to the first unit that a text value may not hold as it is.
  /// @returns its place, or the text's end
  [[nodiscard]] std::size_t appendPlain(const ReadableText& text, std::size_t at) noexcept {
    return copyPlain(text, at, m_end, m_isAscii);
  }
  /// Appends what is plain, or written in escapes of a text, from some place on, but perhaps
  /// nothing. Semicolons count as plain where they are not escaped.
  /// @returns where that ends
  [[nodiscard]] std::size_t appendEscaped(TextView text, std::size_t at,
                                          bool escapesSemicolons) noexcept {
    return copyEscaped(text, at, escapesSemicolons, m_end, m_isAscii);
  }
  /// Appends a character that may be beyond ASCII.
  void appendCharacter(TextView character) noexcept {
    m_isAscii = m_isAscii && isAscii(character.front());
    append(character);
  }

  /// Forgets what was not of ASCII.
  void beginLine() noexcept { m_isAscii = true; }
  /// Whether all is ASCII since the line began, for all that is known.
  [[nodiscard]] bool isLineAscii() const noexcept { return m_isAscii; }

  /// Room further on, for what is needed on the way.
  [[nodiscard]] Units behind(std::size_t units) const noexcept { return Units(m_end + units); }

  [[nodiscard]] std::size_t size() const noexcept {
    return static_cast<std::size_t>(m_end - m_begin);
  }
  void resize(std::size_t size) noexcept { m_end = m_begin + size; }
  [[nodiscard]] TextView view() const noexcept { return {m_begin, size()}; }

 private:
  char16_t* m_begin;
  char16_t* m_end;
  bool m_isAscii = true;
};

} // namespace cardwright
