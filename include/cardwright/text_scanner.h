#pragma once

#include "cardwright/character_set.h"
#include "cardwright/text.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

namespace cardwright {

/// A cursor over a text. Positions are UTF-16 code units; nothing is skipped by itself.
///
/// Scanned texts are views of the scanner's text; a null pointer asks for none. A scanner belongs
/// to one thread at a time.
class [[gnu::visibility("default")]] TextScanner {
 public:
  /// Scans a text that outlives the scanner.
  explicit TextScanner(TextView text) noexcept : m_text(text) {}
  /// Keeps the text.
  explicit TextScanner(Text && text);
  /// Decodes UTF-8 and keeps the text; bytes that are no UTF-8 become U+FFFD.
  explicit TextScanner(std::string_view utf8);

  /// The whole text.
  [[nodiscard]] TextView string() const noexcept {
    return m_text;
  }

  /// Index of the next code unit to be read.
  [[nodiscard]] std::size_t scanLocation() const noexcept {
    return m_location;
  }
  /// May lie behind the end; the scanner is then at its end.
  void setScanLocation(std::size_t location) noexcept {
    m_location = location;
  }
  /// Whether there is nothing left to read.
  [[nodiscard]] bool isAtEnd() const noexcept {
    return m_location >= m_text.size();
  }

  /// Reads code units up to one of the set or the end; false when there is none to read.
  bool scanUpToCharactersFromSet(const CharacterSet& set, TextView* scanned = nullptr);
  /// Reads code units while they are in the set; false when there is none to read.
  bool scanCharactersFromSet(const CharacterSet& set, TextView* scanned = nullptr);
  /// Reads exactly this string; false when the text goes on otherwise.
  bool scanString(TextView string, TextView* scanned = nullptr);
  /// Reads up to the string or the end; false when there is nothing to read.
  bool scanUpToString(TextView string, TextView* scanned = nullptr);

  /// Reads one logical line: physical lines joined where they are folded (RFC 6350, section 3.2)
  /// or end in a quoted-printable soft break.
  /// @returns false, with `line` untouched, when there is no line that is not empty
  bool scanFoldedLineIntoString(Text * line);

  /// Reads a token of a content line: after blanks, a text in double quotes, or everything up to
  /// one of the delimiters.
  /// @param delimiters    code units that end it; they are left in the text
  /// @param token         receives the text, without quotes
  /// @param endOfLineIsOK whether the token may be the last thing in the text
  /// @returns false, with `token` untouched, when the token is empty or nothing follows it
  bool scanQuotedStringOrUptoDelimiters(TextView delimiters, Text * token,
                                        bool endOfLineIsOK = false);

 private:
  std::shared_ptr<const Text> m_kept;
  TextView m_text;
  std::size_t m_location = 0;
};

} // namespace cardwright
