#include "reader/address_book_server.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/whitespace.h"

namespace cardwright {

namespace {

constexpr TextView kPrefix = u"x-addressbookserver-";

/// How far behind the start of the name its colon may stand.
constexpr std::size_t kColonReach = 128;

} // namespace

std::size_t addressBookServerNameStart(TextView text, std::size_t position) noexcept {
  std::size_t end = position;
  while (end < text.size() && isAsciiNameUnit(text[end])) {
    ++end;
  }
  const bool isGroup = end > position && end + 1 < text.size() && text[end] == u'.';
  return isGroup ? end + 1 : position;
}

std::optional<std::size_t> addressBookServerPrefix(TextView text, std::size_t position) {
  // No other letter folds to the first one.
  if (position >= text.size() || asciiLower(text[position]) != kPrefix.front()) {
    return std::nullopt;
  }
  return prefixLengthIgnoringCase(text, position, kPrefix);
}

bool isAddressBookServerLine(TextView line) {
  const TextView content = trimWhitespaceAndNewlines(line);
  const std::size_t colon = content.find(u':');
  if (colon == TextView::npos) {
    return false;
  }
  const TextView header = content.substr(0, colon);
  const std::size_t dot = header.rfind(u'.');
  return addressBookServerPrefix(header, dot == TextView::npos ? 0 : dot + 1).has_value();
}

std::optional<std::size_t> addressBookServerPropertyAhead(TextView text, std::size_t location) {
  std::size_t start = location;
  while (start < text.size() && isSpaceOrTab(text[start])) {
    ++start;
  }
  if (start >= text.size()) {
    return std::nullopt;
  }
  const std::size_t name = addressBookServerNameStart(text, start);
  if (!addressBookServerPrefix(text, name) ||
      text.substr(name, kColonReach).find(u':') == TextView::npos) {
    return std::nullopt;
  }
  return start;
}

} // namespace cardwright
