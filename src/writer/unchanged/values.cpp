#include "writer/unchanged/values.h"

#include "base/ascii.h"
#include "base/utf8_decoder.h"
#include "base/whitespace.h"
#include "values/source_text.h"
#include "writer/unchanged/encoding.h"
#include "writer/unchanged/quoted_printable.h"
#include "writer/unchanged/signs.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

namespace cardwright {

namespace {

/// What becomes of the bytes that begin with a sign.
struct Step {
  std::size_t length;       ///< how many they are; 0 where only the property knows
  std::string_view written; ///< instead of them; empty where they stay

  static constexpr Step unknown() noexcept { return {0, {}}; }
  static constexpr Step stays(std::size_t length) noexcept { return {length, {}}; }
};

using Byte = unsigned char;

/// The unit that the character at `at` stands for; another that is no blank either for most that
/// are none.
char16_t unitForBlanks(std::string_view utf8, std::size_t at) noexcept {
  const auto byte = static_cast<Byte>(utf8[at]);
  if (byte < 0x80) {
    return byte;
  }
  // U+0085, U+00A0, U+1680, U+2000 to U+205F, U+3000
  const bool mayBeBlank = byte == 0xC2 || (byte >= 0xE1 && byte <= 0xE3);
  return mayBeBlank ? static_cast<char16_t>(utf8SequenceAt(utf8, at).codePoint) : u'x';
}

char16_t firstUnit(std::string_view utf8) noexcept {
  return unitForBlanks(utf8, 0);
}

char16_t lastUnit(std::string_view utf8) noexcept {
  std::size_t at = utf8.size() - 1;
  while ((static_cast<Byte>(utf8[at]) & 0xC0U) == 0x80) {
    --at; // Sound UTF-8 has the beginning of each character.
  }
  return unitForBlanks(utf8, at);
}

/// Makes an encoded value what is written of it, in its place. What stays is not moved before
/// something is written that takes more or less room.
class ValueWriting {
 public:
  /// @param begin of the value, which ends where the output does
  ValueWriting(Bytes& output, std::size_t begin, const ValueForm& form, VersionCode version,
               bool isSafe) noexcept
      : m_output(output),
        m_begin(begin),
        m_size(output.size() - begin),
        m_source(output.end() - m_size),
        m_form(form),
        m_version(version),
        m_isSafe(isSafe) {}

  Rewriting write() {
    switch (m_form.valueClass) {
    case ValueClass::extension:
      if (m_isSafe) {
        return Rewriting::needsProperty;
      }
      [[fallthrough]];
    case ValueClass::text:
    case ValueClass::uri:
      return m_form.isList ? writeList() : beginsInBlank() ? Rewriting::needsProperty : writeText();
    case ValueClass::gender:
      return m_form.isList || beginsInBlank() ? Rewriting::needsProperty : writeGender();
    case ValueClass::name:
      return writeSlots(5);
    case ValueClass::address:
      return writeSlots(7);
    case ValueClass::organisation:
      return writeParts();
    default:
      return Rewriting::needsProperty;
    }
  }

 private:
  [[nodiscard]] std::string_view piece(std::size_t begin, std::size_t end) const noexcept {
    return {m_source + begin, end - begin};
  }

  /// The character behind the backslash at `at`, escaped again where need be.
  [[nodiscard]] Step escaped(std::size_t at, bool escapesSemicolons) const noexcept {
    if (at + 1 >= m_size) {
      return Step::unknown();
    }
    const auto byte = static_cast<Byte>(m_source[at + 1]);
    switch (byte) {
    case 'n':
    case ',':
    case '\\':
      return Step::stays(2);
    case 'N':
      return {2, "\\n"};
    case ';':
      return escapesSemicolons ? Step::stays(2) : Step{2, ";"};
    default:
      return byte == 'r' || byte == 'R' || byte <= ' ' || byte >= 0x7F
                 ? Step::unknown()
                 : Step{2, piece(at + 1, at + 2)};
    }
  }

  /// Whether writeCards would have to keep a blank from being trimmed: one that was encoded.
  [[nodiscard]] bool beginsInBlank() const noexcept {
    return m_isSafe && m_size != 0 && isWhitespace(firstUnit({m_source, m_size}));
  }

  /// Takes each sign as `stepAt` tells of its place.
  template <typename StepAt>
  Rewriting writeSteps(StepAt stepAt) {
    std::size_t next = 0;
    for (std::size_t window = 0; window < m_size; window += kSignWindow) {
      std::uint64_t signs = signsIn(m_source + window, std::min(kSignWindow, m_size - window));
      for (; signs != 0; signs &= signs - 1) {
        const std::size_t at = window + static_cast<std::size_t>(std::countr_zero(signs));
        if (at < next) {
          continue; // It belongs to an escape.
        }
        const bool isTab = m_source[at] == '\t' && !m_isSafe;
        const Step step = isTab ? Step::stays(1) : stepAt(at);
        if (step.length == 0) {
          return Rewriting::needsProperty;
        }
        next = at + step.length;
        if (!step.written.empty() && !replace(at, step)) {
          return Rewriting::needsRoom;
        }
      }
    }
    if (m_isMoved) {
      m_output.appendBlocks(piece(m_written, m_size));
    }
    return Rewriting::done;
  }

  /// False where there is no room to keep the value beside what is written of it.
  bool replace(std::size_t at, const Step& step) noexcept {
    if (m_isMoved) {
      m_output.appendBlocks(piece(m_written, at));
    } else if (!move(at)) {
      return false;
    }
    for (const char byte : step.written) {
      m_output.push_back(static_cast<Byte>(byte));
    }
    m_written = at + step.length;
    return true;
  }

  /// Keeps the value further on, so that what stands from `at` on can be written over.
  bool move(std::size_t at) noexcept {
    // No byte becomes more than two.
    const std::size_t distance = 2 * m_size + kBeyondBytes;
    m_output.resize(m_begin);
    if (m_output.room() < distance + m_size + kBeyondBytes) {
      return false;
    }
    char* const value = m_output.end();
    std::memcpy(value + distance, value, m_size);
    m_output.setEnd(value + at);
    m_source = value + distance;
    m_isMoved = true;
    return true;
  }

  [[nodiscard]] std::string_view semicolon() const noexcept {
    return m_version == 3 ? std::string_view("\\;") : std::string_view();
  }

  /// The sign at `at` of a URI, which writeCards does not escape where there is neither a backslash
  /// nor a line break.
  [[nodiscard]] Step bareInUri(std::size_t at) const noexcept {
    if (m_source[at] == ',' || m_source[at] == ';') {
      return Step::stays(1);
    }
    if (m_source[at] != '\\' || at + 1 >= m_size || m_source[at + 1] == '\\') {
      return Step::unknown();
    }
    const Step step = escaped(at, false);
    const bool isBreak = m_source[at + 1] == 'n' || m_source[at + 1] == 'N';
    return step.length == 0 || isBreak ? Step::unknown() : Step{2, piece(at + 1, at + 2)};
  }

  Rewriting writeText() {
    const bool isBare = m_isSafe && m_form.valueClass == ValueClass::uri;
    return writeSteps([this, isBare](std::size_t at) -> Step {
      if (isBare) {
        return bareInUri(at);
      }
      switch (m_source[at]) {
      case '\\':
        return escaped(at, m_version == 3);
      case ',':
        return {1, "\\,"};
      case ';':
        return {1, semicolon()};
      default:
        return Step::unknown();
      }
    });
  }

  /// Whether a line break is escaped at `at` that begins or ends a piece, or seems to: readers trim
  /// it.
  [[nodiscard]] bool isTrimmedBreak(std::size_t at, std::size_t pieceBegin) const noexcept {
    const auto byteAt = [this](std::size_t place) {
      return place < m_size ? m_source[place] : ';';
    };
    const char letter = byteAt(at + 1);
    const char next = byteAt(at + 2);
    return (letter == 'n' || letter == 'N') && (at == pieceBegin || next == ';' || next == ',');
  }

  /// Whether a piece has blanks around it, which readers trim.
  [[nodiscard]] static bool hasBlanksAround(std::string_view text) noexcept {
    return !text.empty() &&
           (isWhitespaceOrNewline(firstUnit(text)) || isWhitespaceOrNewline(lastUnit(text)));
  }

  /// The escape at `at` in the piece that begins at `pieceBegin`.
  [[nodiscard]] Step escapedInPiece(std::size_t at, std::size_t pieceBegin,
                                    bool escapesSemicolons) const noexcept {
    return m_isSafe && isTrimmedBreak(at, pieceBegin) ? Step::unknown()
                                                      : escaped(at, escapesSemicolons);
  }

  /// Writes pieces between separators.
  /// @param other   what is written for the other one of "," and ";"
  /// @param isPiece whether a piece is read as it stands
  template <typename IsPiece>
  Rewriting writePieces(char separator, std::string_view other, bool escapesSemicolons,
                        IsPiece isPiece) {
    std::size_t pieceBegin = 0;
    const Rewriting rewriting = writeSteps([&](std::size_t at) -> Step {
      const char byte = m_source[at];
      if (byte == '\\') {
        return escapedInPiece(at, pieceBegin, escapesSemicolons);
      }
      if (byte != separator && (byte == ',' || byte == ';')) {
        return {1, other};
      }
      if (byte != separator || !isPiece(piece(pieceBegin, at))) {
        return Step::unknown();
      }
      pieceBegin = at + 1;
      return Step::stays(1);
    });
    const bool isWhole = rewriting != Rewriting::done || isPiece(piece(pieceBegin, m_size));
    return isWhole ? rewriting : Rewriting::needsProperty;
  }

  /// The first semicolon ends the sex, even behind a backslash.
  Rewriting writeGender() {
    bool isSex = true;
    return writeSteps([this, &isSex](std::size_t at) -> Step {
      switch (m_source[at]) {
      case ';': {
        const bool isSeparator = std::exchange(isSex, false);
        return isSeparator ? Step::stays(1) : Step{1, "\\;"};
      }
      case ',':
        return {1, "\\,"};
      case '\\':
        return isSex && at + 1 < m_size && m_source[at + 1] == ';' ? Step::unknown()
                                                                   : escaped(at, true);
      default:
        return Step::unknown();
      }
    });
  }

  Rewriting writeParts() {
    return writePieces(';', "\\,", true, [this](std::string_view text) {
      return !m_isSafe || !hasBlanksAround(text);
    });
  }

  Rewriting writeSlots(std::size_t count) {
    std::size_t slots = 1;
    std::size_t pieceBegin = 0;
    // Blanks around a piece are not read, and an empty piece stands only in an empty slot.
    const auto isPiece = [&](std::size_t end, bool mayBeEmpty) {
      return pieceBegin == end ? mayBeEmpty : !hasBlanksAround(piece(pieceBegin, end));
    };
    bool isList = false;
    const Rewriting rewriting = writeSteps([&](std::size_t at) -> Step {
      const char byte = m_source[at];
      if (byte == '\\') {
        return escapedInPiece(at, pieceBegin, true);
      }
      const bool endsSlot = byte == ';';
      if ((byte != ',' && !endsSlot) || !isPiece(at, endsSlot && !isList)) {
        return Step::unknown();
      }
      slots += endsSlot ? 1 : 0;
      isList = !endsSlot;
      pieceBegin = at + 1;
      return Step::stays(1);
    });
    if (rewriting != Rewriting::done) {
      return rewriting;
    }
    if (slots > count || !isPiece(m_size, !isList)) {
      return Rewriting::needsProperty;
    }
    m_output.append(count - slots, ';');
    return Rewriting::done;
  }

  /// Pieces between commas without blanks around them, which are not read.
  Rewriting writeList() {
    return writePieces(',', semicolon(), m_version == 3, [this](std::string_view text) {
      return text.empty() ||
             (m_isSafe ? !hasBlanksAround(text)
                       : !isWhitespace(firstUnit(text)) && !isWhitespace(lastUnit(text)));
    });
  }

  Bytes& m_output;
  std::size_t m_begin; ///< of the value in the output
  std::size_t m_size;
  const char* m_source;      ///< where the value stands
  std::size_t m_written = 0; ///< how much of it was written, once it was moved
  bool m_isMoved = false;
  const ValueForm& m_form;
  VersionCode m_version;
  bool m_isSafe; ///< whether it is written as writeCards does it
};

/// Writes dates, offsets and positions, which are of ASCII.
class NumberWriting {
 public:
  NumberWriting(Bytes& output, TextView value, const ValueForm& form, VersionCode version) noexcept
      : m_output(output), m_value(value), m_form(form), m_version(version) {}

  bool write() {
    switch (m_form.valueClass) {
    case ValueClass::dateTime:
      return writeDate();
    case ValueClass::utcOffset:
      return writeOffset();
    default:
      return writePosition();
    }
  }

 private:
  bool writeDate() {
    const TextView text = m_value;
    const bool isSound = text.ends_with(u'Z') ? m_form.mayBeInstant && isOrdinaryDateTime(text)
                                              : m_form.mayBeDate && isOrdinaryDate(text);
    if (!isSound) {
      return false;
    }
    const bool hasHyphens = text[4] == u'-';
    const bool hasColons = text.size() < 12 ? hasHyphens : text[text.find(u'T') + 3] == u':';
    if (hasHyphens == hasColons && hasHyphens == (m_version == 3)) {
      m_output.append(text);
      return true;
    }
    std::size_t digits = 0;
    for (const char16_t unit : text) {
      if (unit == u'-' || unit == u':') {
        continue;
      }
      if (m_version == 3 && isAsciiDigit(unit)) {
        if (digits == 4 || digits == 6) {
          m_output.push_back(u'-');
        } else if (digits == 10 || digits == 12) {
          m_output.push_back(u':');
        }
        ++digits;
      }
      m_output.push_back(unit);
    }
    return true;
  }

  /// Hours and minutes, with a colon between them or not.
  bool writeOffset() {
    const TextView text = m_value;
    if (!isOrdinaryOffset(text) || text == u"-0000" || text == u"-00:00") {
      return false;
    }
    m_output.append(text.substr(0, 3));
    if (m_version < 4) {
      m_output.push_back(u':');
    }
    m_output.append(text.substr(text.size() - 2));
    return true;
  }

  /// Two numbers as they are written, with six digits behind the point.
  bool writePosition() {
    const std::size_t begin = m_at;
    if (!takeDegrees() || m_at == m_value.size() ||
        (m_value[m_at] != u';' && m_value[m_at] != u',')) {
      return false;
    }
    const std::size_t separator = m_at++;
    if (!takeDegrees() || m_at != m_value.size()) {
      return false;
    }
    m_output.append(m_value.substr(begin, separator - begin));
    m_output.push_back(u';');
    m_output.append(m_value.substr(separator + 1));
    return true;
  }

  bool takeDegrees() {
    m_at += m_at < m_value.size() && m_value[m_at] == u'-' ? 1 : 0;
    const std::size_t begin = m_at;
    const auto takeDigits = [this] {
      const std::size_t first = m_at;
      while (m_at < m_value.size() && isAsciiDigit(m_value[m_at])) {
        ++m_at;
      }
      return m_at - first;
    };
    const std::size_t before = takeDigits();
    const bool isWhole = before == 1 || ((before == 2 || before == 3) && m_value[begin] != u'0');
    if (!isWhole || m_at == m_value.size() || m_value[m_at] != u'.') {
      return false;
    }
    ++m_at;
    return takeDigits() == 6;
  }

  Bytes& m_output;
  TextView m_value;
  const ValueForm& m_form;
  VersionCode m_version;
  std::size_t m_at = 0; ///< in a position
};

/// These are read without decoding.
bool isNumber(ValueClass valueClass) noexcept {
  return valueClass == ValueClass::dateTime || valueClass == ValueClass::utcOffset ||
         valueClass == ValueClass::geo;
}

} // namespace

Rewriting rewriteValue(Bytes& output, const ReadableText& value, const ValueForm& form,
                       VersionCode version, bool isSafe) {
  if (isNumber(form.valueClass)) {
    const bool isWritten = !form.isList && !form.isQuotedPrintable &&
                           NumberWriting(output, value.text, form, version).write();
    return isWritten ? Rewriting::done : Rewriting::needsProperty;
  }
  const bool isText = form.valueClass == ValueClass::text || form.valueClass == ValueClass::uri;
  if (isText && !form.isList && !form.isQuotedPrintable && encodeSimple(output, value.text)) {
    return Rewriting::done;
  }
  const std::size_t begin = output.size();
  const bool isEncoded = form.isQuotedPrintable ? appendWithoutQuotedPrintable(output, value.text)
                                                : encodeSound(output, value);
  return isEncoded ? ValueWriting(output, begin, form, version, isSafe).write()
                   : Rewriting::needsProperty;
}

} // namespace cardwright
