#include "cardwright/utf8.h"

#include "base/ascii.h"
#include "base/ascii_lanes.h"
#include "base/large_memory.h"
#include "base/utf8_decoder.h"
#include "base/utf8_lanes.h"

#include <algorithm>
#include <array>

namespace cardwright {

namespace {

constexpr char16_t kReplacement = 0xFFFD;

/// Writes a code point as UTF-8 and returns how many bytes that took.
std::size_t putCodePoint(char* output, char32_t codePoint) noexcept {
  const auto byte = [](char32_t value) { return static_cast<char>(value); };
  if (codePoint < 0x80) {
    output[0] = byte(codePoint);
    return 1;
  }
  if (codePoint < 0x800) {
    output[0] = byte(0xC0 | (codePoint >> 6U));
    output[1] = byte(0x80 | (codePoint & 0x3FU));
    return 2;
  }
  if (codePoint < 0x10000) {
    output[0] = byte(0xE0 | (codePoint >> 12U));
    output[1] = byte(0x80 | ((codePoint >> 6U) & 0x3FU));
    output[2] = byte(0x80 | (codePoint & 0x3FU));
    return 3;
  }
  output[0] = byte(0xF0 | (codePoint >> 18U));
  output[1] = byte(0x80 | ((codePoint >> 12U) & 0x3FU));
  output[2] = byte(0x80 | ((codePoint >> 6U) & 0x3FU));
  output[3] = byte(0x80 | (codePoint & 0x3FU));
  return 4;
}

} // namespace

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
  std::array<char, 4096> block; // NOLINT: filled as far as `used` tells
  std::size_t used = 0;
  for (std::size_t at = 0; at < text.size();) {
    if (block.size() - used < kAsciiBlock) {
      output.append(block.data(), used);
      used = 0;
    }
    const EncodedRun run = encodeByLanes(text.substr(at), block.data() + used, block.size() - used);
    at += run.units;
    used += run.bytes;
    if (run.units != 0) {
      continue;
    }
    if (isAscii(text[at])) {
      const std::size_t room = std::min(text.size() - at, block.size() - used);
      const std::size_t count = narrowAscii(text.data() + at, room, block.data() + used);
      at += count;
      used += count;
      continue;
    }
    const char32_t codePoint = codePointAt(text, at);
    at += unitLength(codePoint);
    const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    used += putCodePoint(block.data() + used, isSurrogate ? kReplacement : codePoint);
  }
  output.append(block.data(), used);
}

std::string utf8FromText(TextView text) {
  std::string output;
  reserveLarge(output, text.size() + text.size() / 8);
  appendUtf8(output, text);
  return output;
}

} // namespace cardwright
