#include "text/wrap.h"

#include <unicode/ubrk.h>

#include <cstdint>
#include <limits>

namespace cardwright::tool {

namespace {

TextView withoutBlanksAtEnd(TextView text) {
  const std::size_t last = text.find_last_not_of(u' ');
  return last == TextView::npos ? TextView() : text.substr(0, last + 1);
}

/// Between ASCII characters only a blank parts words: what else may part them stands in addresses.
bool partsWords(TextView line, std::size_t at) {
  return at == line.size() || line[at - 1] == u' ' || line[at - 1] >= 0x80 || line[at] >= 0x80;
}

} // namespace

LineWrapper::~LineWrapper() {
  ubrk_close(m_lines);
}

std::vector<TextView> LineWrapper::wrap(TextView line, std::size_t columns) {
  constexpr auto kMost = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
  if (line.size() > kMost || m_width.columns(line) <= columns) {
    return {line};
  }
  UErrorCode status = U_ZERO_ERROR;
  if (m_lines == nullptr) {
    m_lines = ubrk_open(UBRK_LINE, "", nullptr, 0, &status);
  }
  ubrk_setText(m_lines, line.data(), static_cast<std::int32_t>(line.size()), &status);
  if (U_FAILURE(status)) {
    return {line};
  }
  std::vector<TextView> pieces;
  std::size_t start = 0; // of the piece
  std::size_t used = 0;  // its columns, blanks at its end included
  std::size_t from = 0;  // of the word
  for (std::int32_t next = ubrk_next(m_lines); next != UBRK_DONE; next = ubrk_next(m_lines)) {
    const auto to = static_cast<std::size_t>(next);
    if (!partsWords(line, to)) {
      continue;
    }
    const TextView word = line.substr(from, to - from);
    const std::size_t bare = m_width.columns(withoutBlanksAtEnd(word));
    if (used != 0 && used + bare > columns) {
      pieces.push_back(withoutBlanksAtEnd(line.substr(start, from - start)));
      start = from;
      used = 0;
    }
    used += m_width.columns(word);
    from = to;
  }
  pieces.push_back(withoutBlanksAtEnd(line.substr(start)));
  return pieces;
}

} // namespace cardwright::tool
