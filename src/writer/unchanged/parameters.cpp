#include "writer/unchanged/parameters.h"

#include "base/ascii.h"
#include "cardwright/vocabulary.h"
#include "writer/unchanged/names.h"
#include "writer/unchanged/words.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace cardwright {

namespace {

/// The name of a parameter, of which several items may follow each other.
struct ParameterName {
  TextView name; ///< upper-cased where it is well-known
  std::uint64_t order;

  friend bool operator==(const ParameterName& a, const ParameterName& b) noexcept {
    return a.order == b.order && equalAsciiIgnoringCase(a.name, b.name);
  }
};

/// One value of a parameter, as it stands in the line.
struct Item {
  ParameterName parameter;
  TextView value;
  bool needsQuotes;
};

/// The items of a line in the order in which they are written.
class Items {
 public:
  /// False when there are too many, or two names about whose order their first units say nothing.
  bool add(const Item& item) {
    if (m_count == m_items.size()) {
      return false;
    }
    std::size_t place = m_count;
    for (; place > 0 && item.parameter.order <= m_items[place - 1].parameter.order; --place) {
      if (item.parameter.order == m_items[place - 1].parameter.order) {
        if (item.parameter == m_items[place - 1].parameter) {
          break;
        }
        return false;
      }
      m_items[place] = m_items[place - 1];
    }
    m_items[place] = item;
    ++m_count;
    return true;
  }

  [[nodiscard]] const Item* begin() const noexcept { return m_items.data(); }
  [[nodiscard]] const Item* end() const noexcept { return m_items.data() + m_count; }

 private:
  std::array<Item, kMostItems> m_items; // NOLINT: filled as far as m_count tells
  std::size_t m_count = 0;
};

class ParameterWriting {
 public:
  ParameterWriting(Bytes& output, TextView line, TextView key, const HeaderTask& task,
                   std::size_t& at, StatedForm& stated) noexcept
      : m_output(output), m_line(line), m_key(key), m_task(task), m_at(at), m_stated(stated) {}

  bool write() {
    Items items;
    while (m_line[m_at] == u';') {
      const ShortWord beginning = shortWordAt(m_line, m_at + 1);
      const std::size_t end = endOfWord(m_line, m_at + 1, beginning);
      const TextView word = m_line.substr(m_at + 1, end - m_at - 1);
      m_at = end;
      if (word.empty() || end == m_line.size() || !readItems(items, word, beginning)) {
        return false;
      }
    }
    if (m_line[m_at] != u':') {
      return false;
    }
    if (m_stated.quotedPrintable.empty()) {
      for (const Item& item : items) {
        write(item);
      }
      return true;
    }
    return m_task.isSafe ? writeDecodedSafely(items) : writeDecoded(items);
  }

 private:
  /// Takes the values of a parameter from behind its first word, up to what ends it.
  bool readItems(Items& items, TextView word, ShortWord beginning) {
    const bool isBare = m_line[m_at] != u'=';
    if (isBare && (m_line[m_at] == u',' || m_key == cVCardProperty_PHOTO)) {
      return false; // A bare list is one word, and that of a photo may be an encoding.
    }
    const TextView name = isBare ? cVCardParameter_TYPE : word;
    Item item{};
    item.parameter = nameOfParameter(isBare ? shortWordPlainly(name, 0) : beginning, name);
    if (isBare) {
      item.value = word;
      lookAt(item);
      if (!items.add(item)) {
        return false;
      }
    }
    while (m_line[m_at] == u'=' || m_line[m_at] == u',') {
      if (!readValue(item) || !items.add(item)) {
        return false;
      }
      if (m_line[m_at] == u'=') {
        return false;
      }
    }
    return true;
  }

  /// Takes the value behind the sign at the location.
  bool readValue(Item& item) {
    ++m_at;
    item.needsQuotes = false;
    const bool isQuoted = m_at < m_line.size() && m_line[m_at] == u'"';
    m_at += isQuoted ? 1 : 0;
    std::size_t end = m_at;
    if (isQuoted) {
      for (; end < m_line.size() && m_line[end] != u'"'; ++end) {
        const char16_t unit = m_line[end];
        // The room for a line is reckoned by where its header ends, which the first colon tells.
        if (unit < u' ' || unit > u'~' || unit == u'^' || unit == u':') {
          return false;
        }
        item.needsQuotes = item.needsQuotes || unit == u';' || unit == u',';
        // Signs that may become something else without the quotes, or with what follows.
        const bool isOdd = unit == u'=' || unit == u'&' || (unit == u' ' && end == m_at);
        m_stated.isOrdinary = m_stated.isOrdinary && !isOdd;
      }
    } else {
      end = endOfWord(m_line, m_at);
    }
    item.value = m_line.substr(m_at, end - m_at);
    m_at = end + (isQuoted ? 1 : 0);
    if (item.value.empty() || m_at >= m_line.size()) {
      return false;
    }
    lookAt(item);
    return takeForm(item);
  }

  /// Writes the parameters of a value that is written decoded.
  bool writeDecoded(const Items& items) {
    for (const Item& item : items) {
      if (item.parameter.name != cVCardParameter_ENCODING &&
          item.parameter.name != cVCardParameter_CHARSET) {
        write(item);
      }
    }
    if (m_task.version == 2) {
      m_output.append(u";CHARSET=UTF-8");
    }
    return true;
  }

  /// The same as writeCards does it: CHARSET stays among the others.
  bool writeDecodedSafely(Items& items) {
    const Item utf8{charsetName(), u"UTF-8", false};
    if (m_task.version == 2 && !m_hasCharset && !items.add(utf8)) {
      return false;
    }
    for (const Item& item : items) {
      if (item.parameter.name != cVCardParameter_ENCODING) {
        const bool isStatedAnew =
            m_task.version == 2 && item.parameter.name == cVCardParameter_CHARSET;
        write(isStatedAnew ? utf8 : item);
      }
    }
    return true;
  }

  static ParameterName charsetName() noexcept {
    const ShortWord word = shortWordPlainly(cVCardParameter_CHARSET, 0);
    return nameOfParameter(word, cVCardParameter_CHARSET);
  }

  static ParameterName nameOfParameter(ShortWord word, TextView name) noexcept {
    const NameRow<WrittenName>* const known = writtenName(word, name);
    return known != nullptr ? ParameterName{known->name, known->value.parameterOrder}
                            : ParameterName{name, orderOfOther(word)};
  }

  /// Notes what writeCards does not write as it stands.
  void lookAt(const Item& item) {
    const TextView name = item.parameter.name;
    const bool isOdd = name == cVCardParameter_TYPE && m_task.version == 2 &&
                       equalAsciiIgnoringCase(item.value, cVCardParameter_ENCODING_BASE64);
    m_stated.isOrdinary = m_stated.isOrdinary && !isOdd;
  }

  /// Looks at what the parameter says of the value. The first of several counts.
  bool takeForm(const Item& item) {
    const TextView name = item.parameter.name;
    if (name == cVCardParameter_VALUE) {
      m_stated.isOrdinary = m_stated.isOrdinary && !m_stated.type;
      m_stated.type = m_stated.type.value_or(item.value);
    } else if (name == cVCardParameter_CHARSET) {
      m_stated.isOrdinary = m_stated.isOrdinary && !m_hasCharset;
      m_hasCharset = true;
      return equalAsciiIgnoringCase(item.value, u"UTF-8");
    } else if (name == cVCardParameter_ENCODING) {
      const bool isQuotedPrintable =
          equalAsciiIgnoringCase(item.value, cVCardParameter_ENCODING_QUOTED_PRINTABLE);
      if (m_hasEncoding || (m_task.version == 2 && !isQuotedPrintable)) {
        return false; // In 2.1, an empty line may have to follow.
      }
      m_hasEncoding = true;
      if (isQuotedPrintable) {
        m_stated.quotedPrintable = item.value;
      }
    }
    return true;
  }

  void write(const Item& item) {
    const TextView name = item.parameter.name;
    const bool isType = name == cVCardParameter_TYPE;
    m_output.push_back(u';');
    if (!isType || m_task.version != 2) {
      m_output.appendUpper(name);
      m_output.push_back(u'=');
    }
    if (item.needsQuotes) {
      m_output.push_back(u'"');
    }
    const bool isUpperCased =
        isType || name == cVCardParameter_ENCODING || name == cVCardParameter_VALUE;
    if (isUpperCased && item.value != cVCardParameter_TYPE_PREF) {
      m_output.appendUpper(item.value);
    } else {
      m_output.append(item.value);
    }
    if (item.needsQuotes) {
      m_output.push_back(u'"');
    }
  }

  Bytes& m_output;
  TextView m_line;
  TextView m_key;
  const HeaderTask& m_task;
  std::size_t& m_at;
  StatedForm& m_stated;
  bool m_hasEncoding = false;
  bool m_hasCharset = false;
};

} // namespace

bool rewriteParameters(Bytes& output, TextView line, TextView key, const HeaderTask& task,
                       std::size_t& at, StatedForm& stated) {
  return ParameterWriting(output, line, key, task, at, stated).write();
}

} // namespace cardwright
