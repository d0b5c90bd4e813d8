#include "text/words.h"

#include <algorithm>
#include <string>

namespace cardwright::tool {

namespace {

char16_t lower(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

} // namespace

bool equalsIgnoringCase(TextView text, TextView other) noexcept {
  return text.size() == other.size() && startsWithIgnoringCase(text, other);
}

bool startsWithIgnoringCase(TextView text, TextView prefix) noexcept {
  return text.size() >= prefix.size() &&
         std::equal(prefix.begin(), prefix.end(), text.begin(),
                    [](char16_t left, char16_t right) { return lower(left) == lower(right); });
}

Text lowerCased(TextView text) {
  Text result(text);
  std::transform(result.begin(), result.end(), result.begin(), lower);
  return result;
}

TextView trimmed(TextView text) noexcept {
  constexpr TextView kBlanks = u" \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == TextView::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

Text shortened(TextView text) {
  constexpr std::size_t kLongest = 200;
  if (text.size() <= kLongest) {
    return Text(text);
  }
  const bool cutsPair = (text[kLongest] & 0xFC00) == 0xDC00;
  return concat({text.substr(0, cutsPair ? kLongest - 1 : kLongest), u"…"});
}

Text concat(std::initializer_list<TextView> pieces) {
  Text text;
  for (const TextView piece : pieces) {
    text += piece;
  }
  return text;
}

void appendJoined(Text& text, TextView separator, TextView piece) {
  if (piece.empty()) {
    return;
  }
  if (!text.empty()) {
    text += separator;
  }
  text += piece;
}

Text joined(const TextList& texts, TextView separator) {
  Text result;
  for (const Text& text : texts) {
    appendJoined(result, separator, text);
  }
  return result;
}

Text numberText(std::int64_t number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

Text paddedNumber(std::int64_t number, std::size_t digits) {
  Text text = numberText(number);
  if (number >= 0 && text.size() < digits) {
    text.insert(0, digits - text.size(), u'0');
  }
  return text;
}

} // namespace cardwright::tool
