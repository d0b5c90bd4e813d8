#include "base/utf8_decoder.h"

namespace cardwright {

Utf8Sequence utf8SequenceAt(std::string_view utf8, std::size_t at) noexcept {
  const auto byteAt = [utf8](std::size_t index) -> unsigned {
    return index < utf8.size() ? static_cast<unsigned char>(utf8[index]) : 0U;
  };
  const unsigned lead = byteAt(at);
  if (lead < 0x80) {
    return {lead, 1, true};
  }
  // The second byte of some leads has a narrower range: no overlong forms, no surrogates, nothing
  // above U+10FFFF.
  unsigned low = 0x80;
  unsigned high = 0xBF;
  std::size_t length = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    low = lead == 0xE0 ? 0xA0 : 0x80;
    high = lead == 0xED ? 0x9F : 0xBF;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    low = lead == 0xF0 ? 0x90 : 0x80;
    high = lead == 0xF4 ? 0x8F : 0xBF;
  } else {
    return {0, 1, false};
  }
  char32_t codePoint = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const unsigned byte = byteAt(at + i);
    if (byte < low || byte > high) {
      return {0, i, false};
    }
    codePoint = (codePoint << 6U) | (byte & 0x3FU);
    low = 0x80;
    high = 0xBF;
  }
  return {codePoint, length, true};
}

std::optional<Text> textFromSoundUtf8(std::string_view utf8) {
  std::optional<Text> text(std::in_place);
  text->reserve(utf8.size());
  bool isSound = true;
  decodeUtf8(*text, utf8, [&](TextGatherer&, std::size_t, std::size_t) {
    isSound = false;
    return utf8.size();
  });
  if (!isSound) {
    text.reset();
  }
  return text;
}

} // namespace cardwright
