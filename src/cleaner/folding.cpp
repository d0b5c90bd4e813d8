#include "cleaner/folding.h"

#include "base/ascii.h"
#include "base/graphemes.h"
#include "cardwright/vcard_cleaner.h"

#include <unicode/uchar.h>

namespace cardwright {

namespace {

/// So many units are beyond any budget: each takes one byte at least.
constexpr std::size_t kFarBehindBudget = 2 * kFirstFoldBytes;

std::size_t utf8Bytes(TextView text) noexcept {
  std::size_t bytes = 0;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t codePoint = codePointAt(text, at);
    at += unitLength(codePoint);
    bytes += utf8Length(codePoint);
  }
  return bytes;
}

bool isWhiteSpaceCharacter(TextView text, std::size_t position) noexcept {
  const char32_t codePoint = codePointAt(text, position);
  return codePoint < 0x80 ? codePoint == U' ' || (codePoint >= 0x09 && codePoint <= 0x0D)
                          : u_isUWhiteSpace(static_cast<UChar32>(codePoint)) != 0;
}

} // namespace

bool fitsOnOneLine(TextView line) noexcept {
  return line.size() <= kFirstFoldBytes &&
         (line.size() * 3 <= kFirstFoldBytes || utf8Bytes(line) <= kFirstFoldBytes);
}

TextView takeFoldedLine(TextView& rest, std::size_t budget) {
  std::size_t end = 0;
  std::size_t behindSpace = 0;
  std::size_t bytes = 0;
  bool isWhole = true;
  // Nothing far behind the budget matters, and looking there line after line would add up.
  const TextView near = rest.substr(0, kFarBehindBudget);
  for (GraphemeWalker walker(near); !walker.atEnd();) {
    std::size_t next = walker.next();
    if (end == 0 && next == near.size()) {
      next = endOfCharacter(rest, 0);
    }
    bytes += utf8Bytes(rest.substr(end, next - end));
    if (bytes > budget) {
      isWhole = false;
      end = end == 0 ? next : end;
      break;
    }
    if (isWhiteSpaceCharacter(rest, end)) {
      behindSpace = next;
    }
    end = next;
  }
  if (!isWhole && behindSpace != 0) {
    end = behindSpace;
  }
  const TextView line = rest.substr(0, end);
  rest.remove_prefix(end);
  return line;
}

TextList VCardCleaner::foldLine75(TextView line) {
  if (fitsOnOneLine(line)) {
    return {Text(line)};
  }
  TextList lines;
  std::size_t budget = kFirstFoldBytes;
  while (!line.empty()) {
    Text folded;
    if (budget != kFirstFoldBytes) {
      folded.push_back(u' ');
    }
    folded.append(takeFoldedLine(line, budget));
    lines.push_back(std::move(folded));
    budget = kLaterFoldBytes;
  }
  return lines;
}

} // namespace cardwright
