#include "base/numbers.h"

#include "base/ascii.h"
#include "base/whitespace.h"

#include <clocale>
#include <cstdlib>
#include <string>

namespace cardwright {

namespace {

std::size_t digitsFrom(TextView text, std::size_t at) {
  while (at < text.size() && isAsciiDigit(text[at])) {
    ++at;
  }
  return at;
}

bool isSignAt(TextView text, std::size_t at) {
  return at < text.size() && (text[at] == u'+' || text[at] == u'-');
}

/// The number's own characters; empty when the text begins otherwise.
TextView numberAtStart(TextView text) {
  std::size_t at = isSignAt(text, 0) ? 1 : 0;
  const std::size_t integerBegin = at;
  at = digitsFrom(text, at);
  std::size_t digits = at - integerBegin;
  if (at < text.size() && text[at] == u'.') {
    const std::size_t fractionEnd = digitsFrom(text, at + 1);
    digits += fractionEnd - (at + 1);
    at = fractionEnd;
  }
  if (digits == 0) {
    return {};
  }
  if (at < text.size() && (text[at] == u'e' || text[at] == u'E')) {
    const std::size_t exponentBegin = at + (isSignAt(text, at + 1) ? 2 : 1);
    const std::size_t exponentEnd = digitsFrom(text, exponentBegin);
    if (exponentEnd > exponentBegin) {
      at = exponentEnd;
    }
  }
  return text.substr(0, at);
}

} // namespace

double leadingNumber(TextView text) {
  while (!text.empty() && isWhitespaceOrNewline(text.front())) {
    text.remove_prefix(1);
  }
  const TextView number = numberAtStart(text);
  if (number.empty()) {
    return 0;
  }
  const std::string ascii(number.begin(), number.end());
  static const locale_t plainLocale = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(ascii.c_str(), nullptr, plainLocale);
}

} // namespace cardwright
