#include "writer/unchanged/values.h"

#include "base/ascii.h"
#include "base/whitespace.h"
#include "values/source_text.h"
#include "values/valid_xml.h"

#include <cstddef>

namespace cardwright {

namespace {

class ValueWriting {
 public:
  ValueWriting(Units& output, const ReadableText& value, const ValueForm& form,
               VersionCode version) noexcept
      : m_output(output),
        m_readable(value),
        m_value(value.text),
        m_form(form),
        m_version(version) {}

  bool write() {
    switch (m_form.valueClass) {
    case ValueClass::text:
    case ValueClass::uri:
    case ValueClass::extension:
      return m_form.isList ? writeList() : writeText();
    default:
      return !m_form.isList && writeStructured();
    }
  }

 private:
  bool writeStructured() {
    switch (m_form.valueClass) {
    case ValueClass::name:
      return writeSlots(5);
    case ValueClass::address:
      return writeSlots(7);
    case ValueClass::organisation:
      return writeParts();
    case ValueClass::dateTime:
      return writeDate();
    case ValueClass::utcOffset:
      return writeOffset();
    case ValueClass::geo:
      return writePosition();
    default:
      return false;
    }
  }

  /// The character behind the backslash at `at`, escaped again where need be.
  bool writeEscaped(std::size_t at, bool escapesSemicolons) {
    if (at + 1 >= m_value.size()) {
      return false;
    }
    const char16_t unit = m_value[at + 1];
    switch (unit) {
    case u'n':
    case u'N':
      m_output.append(u"\\n");
      return true;
    case u';':
      if (!escapesSemicolons) {
        m_output.push_back(u';');
        return true;
      }
      [[fallthrough]];
    case u'\\':
    case u',':
      m_output.push_back(u'\\');
      m_output.push_back(unit);
      return true;
    default:
      if (unit == u'r' || unit == u'R' || unit <= u' ' || unit >= 0x7F) {
        return false;
      }
      m_output.push_back(unit);
      return true;
    }
  }

  /// Whether the unit that is no plain one stands for itself all the same.
  bool isPlainAt(std::size_t at) const noexcept {
    const char16_t unit = m_value[at];
    return unit == u'\t' || (!isAscii(unit) && invalidLengthAt(m_value, at) == 0);
  }

  /// Writes up to the end, where `write` does what is not plain: it gets the place and tells how
  /// many units it has written, 0 where it cannot.
  template <typename Write>
  bool writePlain(Write write) {
    return writePlain(write, [](std::size_t at) { return at; });
  }

  /// The same, where `skip` writes what it can at once, from a place on, and tells how far it came.
  template <typename Write, typename Skip>
  bool writePlain(Write write, Skip skip) {
    std::size_t at = m_output.appendPlain(m_readable, skip(0));
    while (at < m_value.size()) {
      if (isPlainAt(at)) {
        // A high surrogate that is valid begins a pair.
        const std::size_t length = isHighSurrogate(m_value[at]) ? 2 : 1;
        m_output.appendCharacter(m_value.substr(at, length));
        at += length;
      } else {
        const std::size_t length = write(at);
        if (length == 0) {
          return false;
        }
        at += length;
      }
      // Separators often follow each other.
      if (at < m_value.size() && m_value[at] != u';') {
        at = m_output.appendPlain(m_readable, skip(at));
      }
    }
    return true;
  }

  bool writeText() {
    const auto write = [this](std::size_t at) -> std::size_t {
      switch (m_value[at]) {
      case u'\\':
        return writeEscaped(at, m_version == 3) ? 2 : 0;
      case u',':
        m_output.append(u"\\,");
        return 1;
      case u';':
        m_output.append(m_version == 3 ? u"\\;" : u";");
        return 1;
      default:
        return 0;
      }
    };
    return writePlain(write, [this](std::size_t at) {
      constexpr std::size_t kLong = 64; // Others seldom have escapes.
      return m_value.size() - at < kLong ? at : m_output.appendEscaped(m_value, at, m_version == 3);
    });
  }

  bool writeParts() {
    return writePlain([this](std::size_t at) -> std::size_t {
      switch (m_value[at]) {
      case u'\\':
        return writeEscaped(at, true) ? 2 : 0;
      case u',':
        m_output.append(u"\\,");
        return 1;
      case u';':
        m_output.push_back(u';');
        return 1;
      default:
        return 0;
      }
    });
  }

  bool writeSlots(std::size_t count) {
    std::size_t slots = 1;
    std::size_t pieceBegin = 0;
    // Blanks around a piece are not read, and an empty piece stands only in an empty slot.
    const auto isPiece = [&](std::size_t end, bool mayBeEmpty) {
      return pieceBegin == end ? mayBeEmpty
                               : !isWhitespaceOrNewline(m_value[pieceBegin]) &&
                                     !isWhitespaceOrNewline(m_value[end - 1]);
    };
    bool isList = false;
    const bool isWritten = writePlain([&](std::size_t at) -> std::size_t {
      const char16_t unit = m_value[at];
      if (unit == u'\\') {
        return writeEscaped(at, true) ? 2 : 0;
      }
      const bool endsSlot = unit == u';';
      if ((unit != u',' && !endsSlot) || !isPiece(at, endsSlot && !isList)) {
        return 0;
      }
      slots += endsSlot ? 1 : 0;
      isList = !endsSlot;
      m_output.push_back(unit);
      pieceBegin = at + 1;
      return 1;
    });
    if (!isWritten || slots > count || !isPiece(m_value.size(), !isList)) {
      return false;
    }
    m_output.append(count - slots, u';');
    return true;
  }

  /// Pieces between commas without blanks around them, which are not read.
  bool writeList() {
    std::size_t pieceBegin = 0;
    const auto isPiece = [&](std::size_t end) {
      return pieceBegin == end ||
             (!isWhitespace(m_value[pieceBegin]) && !isWhitespace(m_value[end - 1]));
    };
    const bool isWritten = writePlain([&](std::size_t at) -> std::size_t {
      const char16_t unit = m_value[at];
      if (unit == u'\\') {
        return writeEscaped(at, m_version == 3) ? 2 : 0;
      }
      if (unit == u';') {
        m_output.append(m_version == 3 ? u"\\;" : u";");
        return 1;
      }
      if (unit != u',' || !isPiece(at)) {
        return 0;
      }
      m_output.push_back(u',');
      pieceBegin = at + 1;
      return 1;
    });
    return isWritten && isPiece(m_value.size());
  }

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

  Units& m_output;
  const ReadableText& m_readable;
  TextView m_value; ///< the same, only what counts
  const ValueForm& m_form;
  VersionCode m_version;
  std::size_t m_at = 0; ///< in a position
};

} // namespace

bool rewriteValue(Units& output, const ReadableText& value, const ValueForm& form,
                  VersionCode version) {
  return ValueWriting(output, value, form, version).write();
}

} // namespace cardwright
