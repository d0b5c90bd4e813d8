#include "writer/folding.h"

#include "base/ascii.h"
#include "base/graphemes.h"

#include <algorithm>

namespace cardwright {

namespace {

constexpr TextView kCrLf = u"\r\n";

/// Whether the first `units` units and one more are such that each is a character by itself.
bool areSingleByteCharacters(TextView text, std::size_t units) noexcept {
  return text.size() > units &&
         std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(units + 1),
                     [](char16_t unit) { return isAscii(unit) && unit != u'\r'; });
}

std::size_t utf8Length(TextView text) noexcept {
  std::size_t bytes = 0;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t codePoint = codePointAt(text, at);
    at += unitLength(codePoint);
    bytes += cardwright::utf8Length(codePoint);
  }
  return bytes;
}

/// How many units of the text, which is not empty, make up the next physical line.
std::size_t lengthOfLine(TextView text, std::size_t limit) {
  if (areSingleByteCharacters(text, limit)) {
    return limit;
  }
  GraphemeWalker walker(text);
  std::size_t end = walker.next();
  std::size_t bytes = utf8Length(text.substr(0, end));
  while (!walker.atEnd()) {
    const std::size_t next = walker.next();
    bytes += utf8Length(text.substr(end, next - end));
    if (bytes > limit) {
      break;
    }
    end = next;
  }
  return end;
}

} // namespace

void appendFolded(Text& output, TextView line) {
  std::size_t limit = kLineBytes;
  do {
    // No unit takes more than three bytes.
    const std::size_t length = line.size() <= limit / 3 ? line.size() : lengthOfLine(line, limit);
    if (limit != kLineBytes) {
      output.push_back(u' ');
    }
    output.append(line.substr(0, length));
    output.append(kCrLf);
    line.remove_prefix(length);
    limit = kLineBytes - 1;
  } while (!line.empty());
}

void foldTail(Text& text, std::size_t begin) {
  const TextView line = TextView(text).substr(begin);
  const bool fits = line.size() <= kLineBytes &&
                    (line.size() <= kLineBytes / 3 || utf8Length(line) <= kLineBytes);
  if (fits) {
    text.append(kCrLf);
    return;
  }
  const Text copy(line);
  text.resize(begin);
  appendFolded(text, copy);
}

} // namespace cardwright
