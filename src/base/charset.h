#pragma once

#include "cardwright/text.h"

#include <optional>
#include <string_view>

namespace cardwright {

/// The encodings that the names of the charset table stand for.
enum class Charset : unsigned char {
  none,
  ascii,
  utf8,
  utf16, ///< with a byte-order mark, else big-endian
  utf16le,
  utf16be,
  iso8859_1,
  iso8859_2,
  iso8859_3,
  iso8859_4,
  iso8859_5,
  iso8859_6,
  iso8859_7,
  iso8859_8,
  iso8859_9,
  iso8859_10,
  iso8859_11,
  iso8859_13,
  iso8859_14,
  iso8859_15,
  windows1250,
  windows1251,
  windows1252,
  windows1253,
  windows1254,
  windows1255,
  windows1256,
  windows1257,
  windows1258,
  koi8r,
  koi8u,
  shiftJis,
  eucJp,
  iso2022jp,
  eucKr,
  iso2022kr,
  gb18030,
  eucCn,
  hz,
  iso2022cn,
  big5,
  eucTw,
};

/// The charset of a name, without regard to case; none when the table has no such name.
[[nodiscard]] Charset charsetNamed(TextView name);

/// The name under which ICU knows a charset, which is not none.
[[nodiscard]] const char* icuName(Charset charset) noexcept;

/// Whether bytes below 80 always stand for the ASCII characters of the same number.
[[nodiscard]] bool keepsAscii(Charset charset) noexcept;

/// Decodes bytes in a charset, which is not none; absent when some of them are illegal, unmappable
/// or cut short. A byte-order mark stays, but for utf16, which is told the order by it.
[[nodiscard]] std::optional<Text> textFromBytes(std::string_view bytes, Charset charset);

} // namespace cardwright
