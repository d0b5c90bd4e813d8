#pragma once

#include "cardwright/text.h"

#include <cstddef>

namespace cardwright {

// Searches that look at every unit of a text, sixteen at a time where the machine can. The plain
// forms beside them say what they do, and stand in for them elsewhere.

/// What one look at a piece of a value finds, up to the end of its physical line.
struct ValueMarks {
  std::size_t end = 0; ///< where the line ends: at a CR, a LF or the end of the text
  bool hasColon = false;
  bool hasAmpersand = false;
  bool hasPrefixHyphen = false; ///< a hyphen behind an "X" or "D", as extended names begin

  friend bool operator==(const ValueMarks&, const ValueMarks&) = default;
};

/// Looks at the piece that begins at `begin`, which is not behind the text's end.
[[nodiscard]] ValueMarks marksOfValue(TextView text, std::size_t begin) noexcept;
[[nodiscard]] ValueMarks marksOfValuePlainly(TextView text, std::size_t begin) noexcept;

/// What one look at the front of a physical line finds, up to its first colon or its end.
struct HeaderMarks {
  std::size_t end = 0;     ///< the colon, or where the line ends
  std::size_t nameEnd = 0; ///< the first ";", or the end
  bool hasColon = false;
  bool hasDot = false;
  bool hasQuotes = false;
  bool isOdd = false; ///< whether there is any of `\`, `&`, NUL and units beyond ASCII
  /// Whether there are blanks, or a ";" or "=" with nothing between it and the next sign.
  bool hasGaps = false;

  friend bool operator==(const HeaderMarks&, const HeaderMarks&) = default;
};

/// Looks at the line that begins at `begin`, which is not behind the text's end.
[[nodiscard]] HeaderMarks marksOfHeader(TextView text, std::size_t begin) noexcept;
[[nodiscard]] HeaderMarks marksOfHeaderPlainly(TextView text, std::size_t begin) noexcept;

/// How many bytes of UTF-8 a text takes, where halves of pairs count as if they stood alone: three.
[[nodiscard]] std::size_t mostUtf8Bytes(TextView text) noexcept;
[[nodiscard]] std::size_t mostUtf8BytesPlainly(TextView text) noexcept;

/// All bits that any unit of the text has.
[[nodiscard]] char16_t united(TextView text) noexcept;
[[nodiscard]] char16_t unitedPlainly(TextView text) noexcept;

/// How many units from `begin` on surely fit into so many bytes of UTF-8: before halves of pairs
/// and the text's end, some are left to be counted one by one.
/// @param bytes is made what the units leave of it
[[nodiscard]] std::size_t unitsSurelyWithin(TextView text, std::size_t begin,
                                            std::size_t& bytes) noexcept;

/// The first place of one of two ASCII characters from `begin` on, or the text's end.
[[nodiscard]] std::size_t findEither(TextView text, std::size_t begin, char one,
                                     char other) noexcept;
[[nodiscard]] std::size_t findEitherPlainly(TextView text, std::size_t begin, char one,
                                            char other) noexcept;

/// The first unit from `begin` on that a text value may not hold as it is, or the text's end: ","
/// ";" and "\", controls, DEL, and units from 0xD7FF on, among them the surrogates.
[[nodiscard]] std::size_t findUnplain(TextView text, std::size_t begin) noexcept;
[[nodiscard]] std::size_t findUnplainPlainly(TextView text, std::size_t begin) noexcept;

/// The first unit from `begin` on that is no ASCII or is a CR, or the text's end. All before it
/// are characters by themselves, but for the last one, which what follows may join.
[[nodiscard]] std::size_t findUnsingle(TextView text, std::size_t begin) noexcept;
[[nodiscard]] std::size_t findUnsinglePlainly(TextView text, std::size_t begin) noexcept;

/// The first CR or LF from `begin` on, or the text's end.
[[nodiscard]] inline std::size_t endOfLine(TextView text, std::size_t begin) noexcept {
  return findEither(text, begin, '\r', '\n');
}

/// The first place where a CR stands before a CR, or npos.
[[nodiscard]] std::size_t findDoubleCr(TextView text) noexcept;

} // namespace cardwright
