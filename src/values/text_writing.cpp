#include "base/scan_lanes.h"
#include "cardwright/vcard_utils.h"
#include "values/valid_xml.h"

#include <array>
#include <cstdint>

namespace cardwright {

namespace {

enum class Writing : std::uint8_t {
  plain,
  escape,
  escapeSemicolon,
  lineBreak,
  carriageReturn,
  drop
};

constexpr auto kAsciiWriting = [] {
  std::array<Writing, 128> table{};
  for (char16_t unit = 0; unit < 128; ++unit) {
    table[unit] = isValidInXml(unit) ? Writing::plain : Writing::drop;
  }
  table[u'\\'] = Writing::escape;
  table[u','] = Writing::escape;
  table[u';'] = Writing::escapeSemicolon;
  table[u'\n'] = Writing::lineBreak;
  table[u'\r'] = Writing::carriageReturn;
  return table;
}();

/// Above ASCII, the only invalid characters lie here and in the surrogates.
constexpr char16_t kFirstUncertain = 0xD7FF;

Writing writingAt(TextView text, std::size_t at) noexcept {
  const char16_t unit = text[at];
  if (isAscii(unit)) {
    return kAsciiWriting[unit];
  }
  return unit < kFirstUncertain || invalidLengthAt(text, at) == 0 ? Writing::plain : Writing::drop;
}

/// Whether the next character that is written is a line feed.
bool lineFeedFollows(TextView text, std::size_t at) noexcept {
  while (at < text.size() && text[at] != u'\n') {
    const std::size_t invalid = invalidLengthAt(text, at);
    if (invalid == 0) {
      return false;
    }
    at += invalid;
  }
  return at < text.size();
}

} // namespace

void VCardUtils::writeTextValue(std::optional<TextView> text, Text& output, bool escapeSemicolons) {
  if (!text) {
    return;
  }
  std::size_t copied = 0;
  for (std::size_t at = findUnplain(*text, 0); at < text->size(); at = findUnplain(*text, at)) {
    const Writing writing = writingAt(*text, at);
    if (writing == Writing::plain || (writing == Writing::escapeSemicolon && !escapeSemicolons)) {
      at += isHighSurrogate((*text)[at]) ? 2 : 1; // A valid one begins a pair.
      continue;
    }
    output.append(*text, copied, at - copied);
    switch (writing) {
    case Writing::carriageReturn:
      if (lineFeedFollows(*text, at + 1)) {
        break; // The line feed writes the line break.
      }
      [[fallthrough]];
    case Writing::lineBreak:
      output.append(u"\\n");
      break;
    case Writing::drop:
      break;
    default:
      output.push_back(u'\\');
      output.push_back((*text)[at]);
      break;
    }
    at += writing == Writing::drop ? invalidLengthAt(*text, at) : 1;
    copied = at;
  }
  output.append(*text, copied);
}

} // namespace cardwright
