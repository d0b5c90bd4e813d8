#pragma once

#include "cardwright/text.h"
#include "cardwright/time_zone.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace cardwright {

/// A character set that bytes can be decoded from; 0 is none. Other values mean nothing outside.
using TextEncoding = int;

/// Helper operations on texts, bytes and dictionaries. All may be called from any thread.
class [[gnu::visibility("default")]] VCardUtilities {
 public:
  VCardUtilities() = delete;

  /// Where the first `delimiter` stands that no backslash escapes; a backslash skips the character
  /// behind it. The range is cut to the text.
  [[nodiscard]] static TextRange rangeOfUnescapedDelimiter(TextView text, char16_t delimiter,
                                                           TextRange range) noexcept;

  /// Equality without regard to case, by full case folding; false when `other` is absent.
  [[nodiscard]] static bool isEqualToCaseInsensitiveString(TextView text,
                                                           std::optional<TextView> other);
  /// The first code unit; 0 when the text is empty or its first character is longer than one unit.
  [[nodiscard]] static char16_t firstCharacter(TextView text);
  /// The text without characters that XML cannot hold; U+D7FF, U+FFFD and U+10FFFF count as such.
  [[nodiscard]] static Text validXMLString(TextView text);
  /// Appends the text and then CR LF.
  static void appendCRLF(Text & buffer, TextView text);

  /// The encoding of a charset name, without regard to case; 0 when it is unknown or absent.
  [[nodiscard]] static TextEncoding encodingForCharset(std::optional<TextView> name);
  /// Decodes bytes in the named character set, or else in the one they look like. Meant for single
  /// values; whole files are decoded with more context by decodeFile.
  [[nodiscard]] static std::optional<Text> stringFromData(std::optional<std::string_view> bytes,
                                                          std::optional<TextView> charset);
  /// Decodes quoted-printable (RFC 2045, section 6.7) in the named character set. A text that is
  /// not ASCII comes back as it is.
  [[nodiscard]] static std::optional<Text> stringFromQuotedPrintableStringWithCharset(
      TextView text, std::optional<TextView> charset);
  /// The bytes without those that are no UTF-8; empty when the last sequence is cut short.
  [[nodiscard]] static std::string cleanUTF8(std::string_view bytes);

  /// What a dictionary holds under the key, or else under the first key that equals it without
  /// regard to case.
  /// @returns null when there is none
  template <typename Dictionary>
  [[nodiscard]] static const typename Dictionary::mapped_type* objectForCaseInsensitiveKey(
      const Dictionary& dictionary, TextView key) {
    if (const auto exact = dictionary.find(key); exact != dictionary.end()) {
      return &exact->second;
    }
    for (const auto& [candidate, object] : dictionary) {
      if (isEqualToCaseInsensitiveString(candidate, key)) {
        return &object;
      }
    }
    return nullptr;
  }

  /// The shared time zone named "Universal".
  [[nodiscard]] static TimeZone universalTZ() noexcept {
    return TimeZone::universal();
  }
};

} // namespace cardwright
