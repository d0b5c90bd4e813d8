#include "cardwright/text_scanner.h"

#include "base/text_matcher.h"
#include "cardwright/utf8.h"

namespace cardwright {

TextScanner::TextScanner(Text&& text)
    : m_kept(std::make_shared<const Text>(std::move(text))), m_text(*m_kept) {}

TextScanner::TextScanner(std::string_view utf8) : TextScanner(textFromUtf8(utf8)) {}

namespace {

/// Moves `location` to `end`; false when that reads nothing.
bool advance(TextView text, std::size_t& location, std::size_t end, TextView* scanned) {
  if (end <= location) {
    return false;
  }
  if (scanned != nullptr) {
    *scanned = text.substr(location, end - location);
  }
  location = end;
  return true;
}

/// Where the part begins from a place on, or else the end.
std::size_t placeOf(TextView part, TextView text, std::size_t from) {
  if (part.empty()) {
    return from;
  }
  TextMatcher matcher(part);
  for (std::size_t at = from; at < text.size(); ++at) {
    if (matcher.take(text[at])) {
      return at + 1 - part.size();
    }
  }
  return text.size();
}

} // namespace

bool TextScanner::scanUpToCharactersFromSet(const CharacterSet& set, TextView* scanned) {
  std::size_t end = m_location;
  while (end < m_text.size() && !set.contains(m_text[end])) {
    ++end;
  }
  return advance(m_text, m_location, end, scanned);
}

bool TextScanner::scanCharactersFromSet(const CharacterSet& set, TextView* scanned) {
  std::size_t end = m_location;
  while (end < m_text.size() && set.contains(m_text[end])) {
    ++end;
  }
  return advance(m_text, m_location, end, scanned);
}

bool TextScanner::scanString(TextView string, TextView* scanned) {
  if (isAtEnd() || !m_text.substr(m_location).starts_with(string)) {
    return false;
  }
  return advance(m_text, m_location, m_location + string.size(), scanned);
}

bool TextScanner::scanUpToString(TextView string, TextView* scanned) {
  if (isAtEnd()) {
    return false;
  }
  return advance(m_text, m_location, placeOf(string, m_text, m_location), scanned);
}

} // namespace cardwright
