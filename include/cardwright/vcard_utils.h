#pragma once

#include "cardwright/character_set.h"
#include "cardwright/text.h"

#include <cstddef>
#include <optional>
#include <span>

namespace cardwright {

class TextScanner;

/// Shared character sets, look-ahead tests of the line scanner, and the text codec: how text is
/// escaped in values (RFC 6350, section 3.4) and parameters (RFC 6868).
///
/// Everything here may be called from any thread.
class [[gnu::visibility("default")]] VCardUtils {
 public:
  VCardUtils() = delete;

  /// CR and LF.
  [[nodiscard]] static const CharacterSet& lineTerminatorCharacterSet();
  /// The Unicode space separators and TAB.
  [[nodiscard]] static const CharacterSet& headerWhitespaceCharacterSet();
  /// SPACE and TAB.
  [[nodiscard]] static const CharacterSet& spaceAndTabCharacterSet();
  /// Names of properties that end a torn quoted-printable value, upper case, sorted.
  [[nodiscard]] static std::span<const TextView> recoverableStandalonePropertyNames();

  /// Whether a line's name, without its group, begins with "X-ADDRESSBOOKSERVER-".
  [[nodiscard]] static bool lineIsAddressBookServerProperty(std::optional<TextView> line);
  /// Whether such a property begins at the location, blanks aside. Locations are UTF-16 code units
  /// of the scanner's text; the scanner stays where it is.
  /// @param scanner       gives the text
  /// @param location      may lie behind the end
  /// @param propertyStart receives, on true, the index of its first character
  [[nodiscard]] static bool lineBeginsWithAddressBookServerPropertyAtLocation(
      const TextScanner& scanner, std::size_t location, std::size_t* propertyStart = nullptr);
  /// Whether the line at the location is blank, the end of the text, BEGIN:VCARD or END:VCARD.
  [[nodiscard]] static bool nextLineIsVCardBoundaryAtLocation(
      const TextScanner& scanner, std::size_t location, const CharacterSet& lineTerminatorSet);
  /// Whether the line at the location is a property of recoverableStandalonePropertyNames.
  [[nodiscard]] static bool nextLineLooksLikeRecoverableStandalonePropertyAtLocation(
      const TextScanner& scanner, std::size_t location, const CharacterSet& lineTerminatorSet,
      const CharacterSet& headerWhitespaceSet);

  /// Removes the members of the set from the line's end, and then one "=".
  static void trimQuotedPrintableSoftBreakSuffixFromLine(Text & line,
                                                         const CharacterSet& spaceAndTabSet);

  /// Decodes a text value: backslash escapes, then quoted-printable, then the character set.
  [[nodiscard]] static std::optional<Text> decodeTextValue(
      std::optional<TextView> text, bool quotedPrintable, std::optional<TextView> charset);
  /// Splits at commas that are not escaped, trims and decodes each piece. Absent for an absent
  /// text, else at least one entry.
  [[nodiscard]] static std::optional<TextList> decodeTextMultiValue(
      std::optional<TextView> text, bool quotedPrintable, std::optional<TextView> charset);
  /// Appends a text value in escaped form, without the characters that validXMLString removes.
  /// An absent text appends nothing.
  static void writeTextValue(std::optional<TextView> text, Text & output, bool escapeSemicolons);

  /// Decodes the caret escapes of a parameter value (RFC 6868).
  [[nodiscard]] static Text decodeParameterTextValue(TextView text);
  /// Writes line feeds, double quotes and carets as caret escapes.
  [[nodiscard]] static Text encodeParameterTextValue(TextView text);
  /// Makes the line feeds of a decoded text CR LF where its source spelled them "=0D=0A". An absent
  /// source spells nothing.
  [[nodiscard]] static std::optional<Text> normalizedDecodedString(std::optional<TextView> decoded,
                                                                   std::optional<TextView> source);
};

} // namespace cardwright
