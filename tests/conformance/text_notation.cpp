#include "conformance/text_notation.h"

#include "conformance/case_error.h"

#include <charconv>

namespace cardwright::conformance {
namespace {

constexpr std::string_view kUpperDigits = "0123456789ABCDEF";
constexpr std::string_view kLowerDigits = "0123456789abcdef";
constexpr std::size_t kEscapeLength = 6; // %uXXXX

[[nodiscard]] bool isPlain(char16_t unit) {
  return unit >= u' ' && unit <= u'~' && unit != u'%';
}

[[nodiscard]] unsigned numberFromHex(std::string_view digits) {
  unsigned number = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number, 16);
  if (error != std::errc() || stop != end) {
    throw CaseError("no hexadecimal digits: " + std::string(digits));
  }
  return number;
}

} // namespace

std::string notationFromText(TextView text) {
  std::string notation;
  notation.reserve(text.size());
  for (const char16_t unit : text) {
    if (isPlain(unit)) {
      notation += static_cast<char>(unit);
      continue;
    }
    notation += "%u";
    for (int shift = 12; shift >= 0; shift -= 4) {
      notation += kUpperDigits[(unit >> static_cast<unsigned>(shift)) & 0xFU];
    }
  }
  return notation;
}

Text textFromNotation(std::string_view notation) {
  Text text;
  text.reserve(notation.size());
  std::size_t position = 0;
  while (position < notation.size()) {
    const auto unit = static_cast<unsigned char>(notation[position]);
    if (isPlain(unit)) {
      text += static_cast<char16_t>(unit);
      ++position;
      continue;
    }
    const std::string_view escape = notation.substr(position, kEscapeLength);
    if (escape.size() < kEscapeLength || !escape.starts_with("%u")) {
      throw CaseError("no text notation: " + std::string(notation));
    }
    text += static_cast<char16_t>(numberFromHex(escape.substr(2)));
    position += kEscapeLength;
  }
  return text;
}

std::string hexFromBytes(std::string_view bytes) {
  std::string hex;
  hex.reserve(bytes.size() * 2);
  for (const char byte : bytes) {
    const auto number = static_cast<unsigned char>(byte);
    hex += kLowerDigits[number >> 4U];
    hex += kLowerDigits[number & 0xFU];
  }
  return hex;
}

std::string bytesFromHex(std::string_view hex) {
  if (hex.size() % 2 != 0) {
    throw CaseError("half a byte: " + std::string(hex));
  }
  std::string bytes;
  bytes.reserve(hex.size() / 2);
  for (std::size_t position = 0; position < hex.size(); position += 2) {
    bytes += static_cast<char>(numberFromHex(hex.substr(position, 2)));
  }
  return bytes;
}

} // namespace cardwright::conformance
