#include "face/conversion/base64.h"

#include "base/ascii.h"
#include "base/whitespace.h"

#include <algorithm>

namespace cardwright {

namespace {

/// The value of a digit; -1 for what is none.
int digitValue(char16_t unit) noexcept {
  if (isAsciiUpper(unit)) {
    return unit - u'A';
  }
  if (isAsciiLower(unit)) {
    return unit - u'a' + 26;
  }
  if (isAsciiDigit(unit)) {
    return unit - u'0' + 52;
  }
  return unit == u'+' ? 62 : unit == u'/' ? 63 : -1;
}

} // namespace

bool isBase64Digit(char16_t unit) noexcept {
  return digitValue(unit) >= 0;
}

std::optional<Text> soundBase64(TextView text) {
  Text digits;
  digits.reserve(text.size());
  std::copy_if(text.begin(), text.end(), std::back_inserter(digits),
               [](char16_t unit) { return !isWhitespaceOrNewline(unit); });
  std::size_t end = digits.size();
  while (end > 0 && digits.size() - end < 2 && digits[end - 1] == u'=') {
    --end;
  }
  const bool isSound =
      digits.size() % 4 == 0 &&
      std::all_of(digits.begin(), digits.begin() + static_cast<std::ptrdiff_t>(end),
                  [](char16_t unit) { return digitValue(unit) >= 0; });
  return isSound ? std::optional<Text>(std::move(digits)) : std::nullopt;
}

std::string headBytes(TextView base64, std::size_t count) {
  std::string bytes;
  unsigned bits = 0;
  unsigned bitCount = 0;
  for (const char16_t unit : base64) {
    const int digit = digitValue(unit);
    if (digit < 0 || bytes.size() == count) {
      break;
    }
    bits = (bits << 6U | static_cast<unsigned>(digit)) & 0xFFFFU;
    bitCount += 6;
    if (bitCount >= 8) {
      bitCount -= 8;
      bytes.push_back(static_cast<char>(bits >> bitCount & 0xFFU));
    }
  }
  return bytes;
}

} // namespace cardwright
