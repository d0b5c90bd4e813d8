#include "base/charset.h"
#include "base/clean_utf8.h"
#include "base/utf8_decoder.h"
#include "cardwright/vcard_utilities.h"

namespace cardwright {

namespace {

/// Tried in this order on bytes that tell nothing about themselves.
constexpr Charset kFallbacks[] = {
    Charset::utf8,        Charset::utf16,     Charset::utf16le,  Charset::utf16be,
    Charset::windows1252, Charset::iso8859_1, Charset::shiftJis, Charset::ascii,
};

/// The order of bytes that look like UTF-16: by their mark, or because every other one is zero.
Charset sniffedUtf16(std::string_view bytes) noexcept {
  if (bytes.starts_with("\xFE\xFF")) {
    return Charset::utf16be;
  }
  if (bytes.starts_with("\xFF\xFE")) {
    return Charset::utf16le;
  }
  if (bytes.size() >= 4) {
    if (bytes[1] == 0 && bytes[3] == 0 && bytes[0] != 0) {
      return Charset::utf16le;
    }
    if (bytes[0] == 0 && bytes[2] == 0 && bytes[1] != 0) {
      return Charset::utf16be;
    }
  }
  return Charset::none;
}

} // namespace

TextEncoding VCardUtilities::encodingForCharset(std::optional<TextView> name) {
  return name ? static_cast<TextEncoding>(charsetNamed(*name)) : 0;
}

std::string VCardUtilities::cleanUTF8(std::string_view bytes) {
  return cleanedUtf8(bytes);
}

std::optional<Text> VCardUtilities::stringFromData(std::optional<std::string_view> bytes,
                                                   std::optional<TextView> charset) {
  if (!bytes) {
    return std::nullopt;
  }
  const Charset named = charset ? charsetNamed(*charset) : Charset::none;
  if (named != Charset::none) {
    std::optional<Text> text = textFromBytes(*bytes, named);
    return text ? std::move(text) : textFromSoundUtf8(cleanedUtf8(*bytes));
  }
  if (const Charset sniffed = sniffedUtf16(*bytes); sniffed != Charset::none) {
    if (std::optional<Text> text = textFromBytes(*bytes, sniffed)) {
      return text;
    }
  }
  for (const Charset fallback : kFallbacks) {
    if (std::optional<Text> text = textFromBytes(*bytes, fallback)) {
      return text;
    }
  }
  return std::nullopt;
}

} // namespace cardwright
