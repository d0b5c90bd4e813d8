#include "writer/folding.h"

#include "base/ascii.h"
#include "base/graphemes.h"
#include "base/scan_lanes.h"
#include "writer/physical_lines.h"

namespace cardwright {

namespace {

constexpr TextView kCrLf = u"\r\n";

std::size_t utf8Length(TextView text) noexcept {
  std::size_t bytes = 0;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t codePoint = codePointAt(text, at);
    at += unitLength(codePoint);
    bytes += cardwright::utf8Length(codePoint);
  }
  return bytes;
}

/// Cuts a line into pieces of whole characters. Each unit is looked at once, however long the runs
/// are in which only ICU can tell the characters apart.
class LineCutter {
 public:
  explicit LineCutter(TextView line) noexcept
      : m_line(line), m_walker(line), m_unsingle(findUnsingle(line, 0)) {}

  [[nodiscard]] bool atEnd() const noexcept { return m_begin >= m_line.size(); }

  /// The next piece: the characters that fit into so many bytes, but at least one.
  TextView next(std::size_t limit) {
    const TextView rest = m_line.substr(m_begin);
    std::size_t length = limit;
    // No unit takes more than three bytes.
    if (rest.size() <= limit / 3) {
      length = rest.size();
    } else if (!areSingleByteCharacters(limit)) {
      length = lengthWithin(limit);
    }
    m_begin += length;
    return rest.substr(0, length);
  }

 private:
  /// Whether the next `units` units and one more are such that each is a character by itself.
  bool areSingleByteCharacters(std::size_t units) noexcept {
    if (m_unsingle < m_begin) {
      m_unsingle = findUnsingle(m_line, m_begin);
    }
    return m_unsingle - m_begin > units;
  }

  /// How many units from m_begin on are characters that fit. Most often the first unit that does
  /// not fit and those before it tell where a character ends.
  std::size_t lengthWithin(std::size_t limit) {
    std::size_t room = limit;
    std::size_t end = m_begin + unitsSurelyWithin(m_line, m_begin, room);
    while (end < m_line.size()) {
      const char32_t codePoint = codePointAt(m_line, end);
      const std::size_t bytes = cardwright::utf8Length(codePoint);
      if (bytes > room) {
        break;
      }
      room -= bytes;
      end += unitLength(codePoint);
    }
    if (end < m_line.size()) {
      const std::size_t boundary = certainBoundaryBefore(m_line, m_begin, end);
      end = boundary != m_begin ? boundary : walk(limit);
    }
    return end - m_begin;
  }

  /// Where the characters from m_begin on end that fit.
  std::size_t walk(std::size_t limit) {
    if (m_walked < m_begin) {
      m_walker = GraphemeWalker(m_line.substr(m_begin));
      m_walkerBegin = m_begin;
      m_walked = m_begin;
    }
    if (m_walked == m_begin) {
      step();
    }
    std::size_t end = m_walked;
    std::size_t bytes = m_bytes;
    while (m_walked < m_line.size()) {
      step();
      bytes += m_bytes;
      if (bytes > limit) {
        break;
      }
      end = m_walked;
    }
    return end;
  }

  void step() {
    const std::size_t begin = m_walked;
    m_walked = m_walkerBegin + m_walker.next();
    m_bytes = utf8Length(m_line.substr(begin, m_walked - begin));
  }

  TextView m_line;
  GraphemeWalker m_walker;
  std::size_t m_walkerBegin = 0;
  std::size_t m_begin = 0;  ///< of the next piece
  std::size_t m_unsingle;   ///< the next unit that may be no character by itself
  std::size_t m_walked = 0; ///< end of the last character that was walked
  std::size_t m_bytes = 0;  ///< length of that character
};

} // namespace

void appendFolded(Text& output, TextView line, bool isContinuation) {
  PhysicalLines<char16_t> lines(output);
  LineCutter cutter(line);
  if (!isContinuation) {
    lines.append(cutter.next(kLineBytes));
  }
  while (!cutter.atEnd()) {
    lines.appendContinuation(cutter.next(kLineBytes - 1));
  }
}

bool fitsIntoOne(TextView line) noexcept {
  if (line.size() <= kLineBytes / 3 || line.size() > kLineBytes) {
    return line.size() <= kLineBytes / 3; // No unit takes more than three bytes.
  }
  const char16_t bits = united(line);
  return isAscii(bits) || (bits < 0x800 && line.size() <= kLineBytes / 2) ||
         mostUtf8Bytes(line) <= kLineBytes || utf8Length(line) <= kLineBytes;
}

void appendLine(Text& output, TextView line) {
  if (fitsIntoOne(line)) {
    output.append(line).append(kCrLf);
  } else {
    appendFolded(output, line);
  }
}

void foldTail(Text& text, std::size_t begin) {
  const TextView line = TextView(text).substr(begin);
  if (fitsIntoOne(line)) {
    text.append(kCrLf);
    return;
  }
  const Text copy(line);
  text.resize(begin);
  appendFolded(text, copy);
}

} // namespace cardwright
