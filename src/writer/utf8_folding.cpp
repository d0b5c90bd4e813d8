#include "base/ascii.h"
#include "base/graphemes.h"
#include "base/never_joining.h"
#include "base/utf8_decoder.h"
#include "cardwright/utf8.h"
#include "writer/folding.h"
#include "writer/physical_lines.h"

#include <array>
#include <optional>

namespace cardwright {

namespace {

using Byte = unsigned char;

/// Whether no neighbour of ASCII joins the character: ASCII, but for a CR, which a LF joins.
bool isSingle(char byte) noexcept {
  return static_cast<Byte>(byte) < 0x80 && byte != '\r';
}

bool isContinuation(char byte) noexcept {
  return (static_cast<Byte>(byte) & 0xC0U) == 0x80;
}

/// Where the character of UTF-8 begins that holds the byte at `at`.
std::size_t beginOfCodePoint(std::string_view line, std::size_t at) noexcept {
  while (isContinuation(line[at])) {
    --at;
  }
  return at;
}

/// The character of sound UTF-8 at `at`; 0 for one of four bytes.
char16_t unitAt(std::string_view line, std::size_t at) noexcept {
  const auto byte = [&](std::size_t behind) -> unsigned {
    return static_cast<Byte>(line[at + behind]);
  };
  const unsigned lead = byte(0);
  if (lead < 0x80) {
    return static_cast<char16_t>(lead);
  }
  if (lead < 0xE0) {
    return static_cast<char16_t>((lead & 0x1FU) << 6U | (byte(1) & 0x3FU));
  }
  return lead < 0xF0 ? static_cast<char16_t>((lead & 0xFU) << 12U | (byte(1) & 0x3FU) << 6U |
                                             (byte(2) & 0x3FU))
                     : u'\0';
}

bool neverJoinsAt(std::string_view line, std::size_t at) noexcept {
  const char16_t unit = unitAt(line, at);
  return unit != u'\0' && unit != u'\r' && neverJoins(unit);
}

/// The last boundary that a walk along the characters from the text's begin to `last` finds, or 0.
std::size_t walkedBoundary(TextView text, std::size_t last) {
  std::size_t boundary = 0;
  for (GraphemeWalker walker(text); walker.next() <= last;) {
    boundary = walker.position();
  }
  return boundary;
}

/// The last character boundary in the line that is behind `begin` and not behind `end`; absent
/// where there is none.
/// @param end in front of the line's end
std::optional<std::size_t> boundaryBefore(std::string_view line, std::size_t begin,
                                          std::size_t end) {
  if (isSingle(line[end - 1]) && isSingle(line[end])) {
    return end;
  }
  end = beginOfCodePoint(line, end);
  if (neverJoinsAt(line, beginOfCodePoint(line, end - 1)) && neverJoinsAt(line, end)) {
    return end;
  }
  // No unit is of less than one byte; one character more is looked at, and blocks are written.
  std::array<char16_t, kLineBytes + 2 + 2 * kAsciiBlock> units; // NOLINT: filled below
  const std::string_view piece = line.substr(begin, end + utf8SequenceAt(line, end).length - begin);
  const std::size_t count = decodeSoundRun(piece, units.data(), units.size()).units;
  const TextView text(units.data(), count);
  std::size_t last = count >= 2 && isLowSurrogate(text[count - 1]) ? count - 2 : count - 1;
  std::size_t boundary = certainBoundaryBefore(text, 0, last);
  if (boundary == 0) {
    boundary = walkedBoundary(text, last);
  }
  if (boundary == 0) {
    return std::nullopt;
  }
  while (last > boundary) {
    end = beginOfCodePoint(line, end - 1);
    last -= static_cast<Byte>(line[end]) < 0xF0 ? 1 : 2;
  }
  return end;
}

} // namespace

void appendFoldedUtf8(std::string& output, std::string_view line) {
  std::size_t begin = 0;
  {
    PhysicalLines<char> lines(output);
    const auto append = [&](std::size_t end) {
      const std::string_view piece = line.substr(begin, end - begin);
      begin == 0 ? lines.append(piece) : lines.appendContinuation(piece);
      begin = end;
    };
    std::optional<std::size_t> end = 0;
    for (std::size_t room = kLineBytes; line.size() - begin > room; room = kLineBytes - 1) {
      end = boundaryBefore(line, begin, begin + room);
      if (!end) {
        break;
      }
      append(*end);
    }
    if (end) {
      append(line.size());
      return;
    }
  }
  // Where what stands further on decides, characters have to be walked.
  Text folded;
  appendFolded(folded, textFromUtf8(line.substr(begin)), begin != 0);
  appendUtf8(output, folded);
}

} // namespace cardwright
