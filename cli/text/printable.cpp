#include "text/printable.h"

#include <algorithm>

namespace cardwright::tool {

namespace {

constexpr bool isControl(char16_t unit) {
  return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

/// Characters that change the direction of what stands around them, or end a line.
constexpr bool isHiddenFormat(char16_t unit) {
  return (unit >= 0x2028 && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069) ||
         (unit >= 0xFFF9 && unit <= 0xFFFB) || unit == 0xFEFF;
}

constexpr bool mustBeShown(char16_t unit) {
  return isControl(unit) || isHiddenFormat(unit);
}

constexpr bool endsLine(char16_t unit) {
  return unit == u'\n' || unit == u'\r' || unit == 0x85 || unit == 0x2028 || unit == 0x2029;
}

void appendVisible(Text& output, char16_t unit) {
  if (unit == u'\t') {
    output += u' ';
  } else if (unit < 0x20) {
    output += static_cast<char16_t>(0x2400 + unit); // the picture of the control character
  } else if (unit == 0x7F) {
    output += char16_t{0x2421};
  } else {
    constexpr TextView kDigits = u"0123456789ABCDEF";
    output += u"<U+";
    for (int shift = 12; shift >= 0; shift -= 4) {
      output += kDigits[(unit >> shift) & 0xF];
    }
    output += u'>';
  }
}

} // namespace

Text printable(TextView text) {
  Text result;
  result.reserve(text.size());
  std::size_t at = 0;
  while (at < text.size()) {
    const auto next = std::find_if(text.begin() + at, text.end(), mustBeShown);
    result.append(text.begin() + at, next);
    at = static_cast<std::size_t>(next - text.begin());
    if (at < text.size()) {
      appendVisible(result, text[at++]);
    }
  }
  return result;
}

std::vector<TextView> linesOf(TextView text) {
  std::vector<TextView> lines;
  std::size_t start = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (!endsLine(text[at])) {
      continue;
    }
    lines.push_back(text.substr(start, at - start));
    if (text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n') {
      ++at;
    }
    start = at + 1;
  }
  if (start < text.size() || lines.empty()) {
    lines.push_back(text.substr(start));
  }
  return lines;
}

} // namespace cardwright::tool
