#include "face/writing/safe_texts.h"

#include "base/whitespace.h"

namespace cardwright {

namespace {

constexpr bool isLost(char32_t codePoint) noexcept {
  return (codePoint < 0x20 && codePoint != U'\t' && codePoint != U'\n' && codePoint != U'\r') ||
         isSurrogate(codePoint);
}

} // namespace

bool losesCharacters(TextView text) noexcept {
  for (std::size_t at = 0; at < text.size();) {
    const char32_t codePoint = codePointAt(text, at);
    if (isLost(codePoint)) {
      return true;
    }
    at += unitLength(codePoint);
  }
  return false;
}

Text valueText(TextView text) {
  Text kept;
  kept.reserve(text.size());
  bool isBehindReturn = false;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t codePoint = codePointAt(text, at);
    const std::size_t length = unitLength(codePoint);
    if (codePoint == U'\r' || (codePoint == U'\n' && !isBehindReturn)) {
      kept.push_back(u'\n');
    } else if (codePoint != U'\n' && !isLost(codePoint)) {
      kept.append(text.substr(at, length));
    }
    if (!isLost(codePoint)) {
      isBehindReturn = codePoint == U'\r';
    }
    at += length;
  }
  return kept;
}

void appendEscaped(Text& output, TextView text, bool escapeSemicolons) {
  const TextView special = escapeSemicolons ? u"\\,\n;" : u"\\,\n";
  std::size_t copied = 0;
  for (std::size_t found = text.find_first_of(special); found != TextView::npos;
       found = text.find_first_of(special, copied)) {
    output.append(text, copied, found - copied);
    output.push_back(u'\\');
    output.push_back(text[found] == u'\n' ? u'n' : text[found]);
    copied = found + 1;
  }
  output.append(text, copied);
}

void protectBlanks(Text& output, std::size_t begin) {
  if (output.size() == begin) {
    return;
  }
  const bool endsInBlank = isWhitespaceOrNewline(output.back());
  if (isWhitespaceOrNewline(output[begin])) {
    output.insert(begin, 1, u'\\');
  }
  if (endsInBlank) {
    output.append(u"\\ ");
  }
}

} // namespace cardwright
