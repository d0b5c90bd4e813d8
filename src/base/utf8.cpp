#include "cardwright/utf8.h"

#include "base/ascii.h"
#include "base/utf8_decoder.h"

#include <cstring>

namespace cardwright {

namespace {

constexpr char16_t kReplacement = 0xFFFD;

void appendCodePointUtf8(std::string& output, char32_t codePoint) {
  const auto byte = [&output](char32_t value) { output.push_back(static_cast<char>(value)); };
  if (codePoint < 0x80) {
    byte(codePoint);
  } else if (codePoint < 0x800) {
    byte(0xC0 | (codePoint >> 6U));
    byte(0x80 | (codePoint & 0x3FU));
  } else if (codePoint < 0x10000) {
    byte(0xE0 | (codePoint >> 12U));
    byte(0x80 | ((codePoint >> 6U) & 0x3FU));
    byte(0x80 | (codePoint & 0x3FU));
  } else {
    byte(0xF0 | (codePoint >> 18U));
    byte(0x80 | ((codePoint >> 12U) & 0x3FU));
    byte(0x80 | ((codePoint >> 6U) & 0x3FU));
    byte(0x80 | (codePoint & 0x3FU));
  }
}

} // namespace

Text textFromUtf8(std::string_view utf8) {
  Text text;
  text.reserve(utf8.size());
  std::size_t at = 0;
  while (at < utf8.size()) {
    std::size_t asciiEnd = at;
    while (asciiEnd < utf8.size() && static_cast<unsigned char>(utf8[asciiEnd]) < 0x80) {
      ++asciiEnd;
    }
    text.append(utf8.begin() + static_cast<std::ptrdiff_t>(at),
                utf8.begin() + static_cast<std::ptrdiff_t>(asciiEnd));
    at = asciiEnd;
    if (at == utf8.size()) {
      break;
    }
    const Utf8Sequence sequence = utf8SequenceAt(utf8, at);
    at += sequence.length;
    if (!sequence.isLegal) {
      text.push_back(kReplacement);
    } else if (sequence.codePoint < 0x10000) {
      text.push_back(static_cast<char16_t>(sequence.codePoint));
    } else {
      text.push_back(static_cast<char16_t>(0xD7C0U + (sequence.codePoint >> 10U)));
      text.push_back(static_cast<char16_t>(0xDC00U + (sequence.codePoint & 0x3FFU)));
    }
  }
  return text;
}

void appendUtf8(std::string& output, TextView text) {
  for (std::size_t at = 0; at < text.size();) {
    char32_t codePoint = codePointAt(text, at);
    at += unitLength(codePoint);
    if (codePoint >= 0xD800 && codePoint <= 0xDFFF) {
      codePoint = kReplacement;
    }
    appendCodePointUtf8(output, codePoint);
  }
}

std::string utf8FromText(TextView text) {
  std::string output;
  output.reserve(text.size() + text.size() / 8);
  appendUtf8(output, text);
  return output;
}

} // namespace cardwright
