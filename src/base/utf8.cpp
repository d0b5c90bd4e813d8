#include "cardwright/utf8.h"

#include "base/ascii.h"
#include "base/ascii_lanes.h"
#include "base/large_memory.h"
#include "base/utf8_decoder.h"
#include "base/utf8_encoder.h"
#include "base/utf8_lanes.h"

#include <algorithm>
#include <array>

namespace cardwright {

namespace {

constexpr char16_t kReplacement = 0xFFFD;

} // namespace

char* putCodePoint(char* output, char32_t codePoint) noexcept {
  const auto put = [&output](char32_t value) { *output++ = static_cast<char>(value); };
  if (codePoint < 0x80) {
    put(codePoint);
    return output;
  }
  if (codePoint < 0x800) {
    put(0xC0 | (codePoint >> 6U));
  } else {
    if (codePoint < 0x10000) {
      put(0xE0 | (codePoint >> 12U));
    } else {
      put(0xF0 | (codePoint >> 18U));
      put(0x80 | ((codePoint >> 12U) & 0x3FU));
    }
    put(0x80 | ((codePoint >> 6U) & 0x3FU));
  }
  put(0x80 | (codePoint & 0x3FU));
  return output;
}

Text textFromUtf8(std::string_view utf8) {
  Text text;
  reserveLarge(text, utf8.size());
  decodeUtf8(text, utf8, [](TextGatherer& gatherer, std::size_t at, std::size_t length) {
    gatherer.append(kReplacement);
    return at + length;
  });
  return text;
}

void appendUtf8(std::string& output, TextView text) {
  constexpr std::size_t kMostUnits = 1360;
  std::array<char, roomForUtf8(kMostUnits)> block; // NOLINT: filled by encodeUtf8
  while (!text.empty()) {
    std::size_t count = std::min(text.size(), kMostUnits);
    if (count < text.size() && isHighSurrogate(text[count - 1])) {
      --count; // The other half may follow.
    }
    const char* const end = encodeUtf8(
        {text.substr(0, count), text.data() + text.size()}, block.data(), [](char32_t& codePoint) {
          const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
          codePoint = isSurrogate ? kReplacement : codePoint;
          return true;
        });
    output.append(block.data(), static_cast<std::size_t>(end - block.data()));
    text.remove_prefix(count);
  }
}

std::string utf8FromText(TextView text) {
  std::string output;
  reserveLarge(output, text.size() + text.size() / 8);
  appendUtf8(output, text);
  return output;
}

} // namespace cardwright
