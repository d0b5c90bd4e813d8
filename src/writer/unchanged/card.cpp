#include "writer/unchanged/card.h"

#include "base/ascii.h"
#include "base/fetch.h"
#include "base/of_thread.h"
#include "cardwright/vocabulary.h"
#include "model/line_store.h"
#include "model/stated_version.h"
#include "model/stored_parts.h"
#include "writer/companions.h"
#include "writer/folding.h"
#include "writer/unchanged/line.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>

namespace cardwright {

namespace {

/// What is left to be done with a line.
enum class Left : std::uint8_t {
  nothing,     ///< it is written, with its end
  folding,     ///< it is written, and does not fit into one physical line
  all,         ///< there was no room for it yet
  theProperty, ///< which has to write itself
};

/// A card of more lines is rare, and takes its time anyway.
constexpr std::size_t kMostLines = 64;

/// One line of the card.
struct CardLine {
  TextView key;
  TextView quotedPrintable; ///< what says in the line that it is, where it is written decoded
  std::size_t groupSize;    ///< 0 for no group
  std::uint16_t begin;      ///< of what is written, in the room that all share
  std::uint16_t end;
  Left left;
  bool isCompanion;
};

/// Numbers of lines in the order in which these are written.
class LineOrder {
 public:
  [[nodiscard]] std::uint8_t operator[](std::size_t place) const noexcept {
    return m_numbers[place];
  }

  /// Puts the next line in its place: those behind it move on.
  void add(const CardLine* lines, std::size_t number, std::uint64_t order) noexcept {
    std::size_t place = number;
    for (; place > 0 && order <= m_orders[place - 1]; --place) {
      if (order == m_orders[place - 1] &&
          !isBefore(lines[number].key, lines[m_numbers[place - 1]].key)) {
        break;
      }
      m_orders[place] = m_orders[place - 1];
      m_numbers[place] = m_numbers[place - 1];
    }
    m_orders[place] = order;
    m_numbers[place] = static_cast<std::uint8_t>(number);
  }

 private:
  static bool isBefore(TextView a, TextView b) noexcept {
    return a.data() != b.data() && a < b; // Well-known names are the same.
  }

  std::array<std::uint64_t, kMostLines> m_orders; // NOLINT: filled as far as lines were added
  std::array<std::uint8_t, kMostLines> m_numbers; // NOLINT: likewise
};

class UnchangedCard {
 public:
  UnchangedCard(CardOutput& output, const VCard& card, const detail::CardLines& lines,
                VersionCode version, DateFormatter* formatter, VersionCode stated)
      : m_output(output),
        m_card(card),
        m_texts(lines.store->lines.data() + lines.first),
        m_storeEnd(lines.store->text.data() + lines.store->text.size()),
        m_storeBegin(lines.store->text.data()),
        m_count(lines.count),
        m_countBeforeVersion(lines.countBeforeVersion),
        m_readAs(lines.version),
        m_version(version),
        m_stated(stated),
        m_formatter(formatter),
        m_memory(ofThread<HeaderMemory>()) {}

  /// Rewrites each line for itself, and finds its place.
  bool rewrite() {
    Bytes output(m_bytes.data(), m_bytes.size());
    for (std::size_t number = 0; number < m_count; ++number) {
      if (!rewrite(number, output)) {
        return false;
      }
      if (m_lines[number].isCompanion) {
        m_companions[m_companionCount++] = static_cast<std::uint8_t>(number);
      }
    }
    return true;
  }

  /// Whether each label and format is written where writeCards would write it, too: behind the only
  /// property that it describes, and there is no other of its kind there.
  [[nodiscard]] bool hasPlainCompanions() const noexcept {
    if (m_companionCount == 0) {
      return true;
    }
    for (std::size_t number = 0; number < m_count; ++number) {
      const Left left = m_lines[number].left;
      if (left != Left::nothing && left != Left::folding) {
        return false; // It may be left out, and then it describes or is described by nothing.
      }
    }
    return std::all_of(m_companions.begin(), m_companions.begin() + m_companionCount,
                       [this](std::size_t number) { return isPlainCompanion(number); });
  }

  void write() {
    m_output.append("BEGIN:VCARD\r\n");
    for (std::size_t place = 0; place < m_count; ++place) {
      const std::size_t number = m_order[place];
      const CardLine& line = m_lines[number];
      if (!line.isCompanion && write(number) && line.groupSize != 0) {
        const TextView group = groupOf(number);
        writeCompanions(kLabelKey, group);
        if (line.key == cVCardProperty_ADR) {
          writeCompanions(kAddressFormatKey, group);
        }
      }
    }
    flush();
    m_output.append("END:VCARD\r\n");
  }

 private:
  [[nodiscard]] bool isWrittenSafely() const noexcept { return m_stated != 0; }

  [[nodiscard]] TextView groupOf(std::size_t number) const noexcept {
    return m_texts[number].substr(0, m_lines[number].groupSize);
  }

  [[nodiscard]] bool isPlainCompanion(std::size_t number) const noexcept {
    const CardLine& companion = m_lines[number];
    std::size_t hosts = 0;
    std::size_t others = 0;
    for (std::size_t i = 0; i < m_count; ++i) {
      const CardLine& line = m_lines[i];
      if (line.groupSize == companion.groupSize &&
          equalAsciiIgnoringCase(groupOf(i), groupOf(number))) {
        const bool isHost =
            !line.isCompanion && (companion.key == kLabelKey || line.key == cVCardProperty_ADR);
        hosts += isHost ? 1 : 0;
        others += line.isCompanion && line.key == companion.key ? 1 : 0;
      }
    }
    return companion.groupSize != 0 && hosts == 1 && others == 1;
  }

  [[nodiscard]] ReadLine readLine(std::size_t number) const noexcept {
    const TextView text = m_texts[number];
    // Most lines lie in the text of all cards, and more may be read there.
    const char16_t* const end = text.data() + text.size();
    const bool isInStore =
        !std::less<>()(text.data(), m_storeBegin) && !std::less<>()(m_storeEnd, end);
    return {{text, isInStore ? m_storeEnd : end},
            number < m_countBeforeVersion ? 0 : m_readAs,
            m_stated};
  }

  /// Rewrites a line into the room that all share, if there is enough of it.
  bool rewrite(std::size_t number, Bytes& output) {
    CardLine& line = m_lines[number];
    if (roomToBeginLine(m_texts[number]) > output.room()) {
      const std::optional<LineName> name = nameOf(m_texts[number]);
      line.left = Left::all;
      line.quotedPrintable = {};
      return takeName(number, name ? &*name : nullptr);
    }
    const std::size_t begin = output.size();
    fetchAhead(m_texts[number].data());
    const RewrittenLine rewritten = rewriteLine(output, readLine(number), m_version, m_memory);
    if (rewritten.rewriting != Rewriting::done) {
      line.left = rewritten.rewriting == Rewriting::needsRoom ? Left::all : Left::theProperty;
    } else if (output.size() - begin > kLineBytes) {
      line.left = Left::folding;
    } else {
      line.left = Left::nothing;
      output.append(u"\r\n");
    }
    static_assert(std::tuple_size_v<decltype(m_bytes)> <= UINT16_MAX);
    line.begin = static_cast<std::uint16_t>(begin);
    line.end = static_cast<std::uint16_t>(output.size());
    line.quotedPrintable = rewritten.quotedPrintable;
    return takeName(number, rewritten.name);
  }

  bool takeName(std::size_t number, const LineName* name) noexcept {
    if (name == nullptr) {
      return false;
    }
    CardLine& line = m_lines[number];
    line.key = name->key(m_texts[number]);
    line.groupSize = name->groupSize();
    line.isCompanion = name->meaning != nullptr && name->meaning->isCompanion;
    m_order.add(m_lines.data(), number, name->order);
    return true;
  }

  /// False for a photo that is left out.
  bool write(std::size_t number) {
    const CardLine& line = m_lines[number];
    tellDecoding(number, line.quotedPrintable);
    if (line.left == Left::nothing) {
      if (line.begin != m_waitingEnd) {
        flush();
        m_waitingBegin = line.begin;
      }
      m_waitingEnd = line.end;
      return true;
    }
    flush();
    if (line.left == Left::folding) {
      m_output.appendFolded(written(line.begin, line.end));
      return true;
    }
    return (line.left == Left::all && rewriteLate(number)) || writeProperty(number);
  }

  /// What writeCards tells of. Lines that describe others are not decoded, and so it is told in the
  /// order of the properties.
  void tellDecoding(std::size_t number, TextView encoding) {
    if (isWrittenSafely() && !encoding.empty()) {
      m_output.encodingLeftOut(groupOf(number), m_lines[number].key, encoding);
    }
  }

  [[nodiscard]] std::string_view written(std::size_t begin, std::size_t end) const noexcept {
    return {m_bytes.data() + begin, end - begin};
  }

  /// Appends the lines that stand behind each other.
  void flush() {
    if (m_waitingBegin != m_waitingEnd) {
      m_output.append(written(m_waitingBegin, m_waitingEnd));
    }
    m_waitingBegin = m_waitingEnd;
  }

  bool rewriteLate(std::size_t number) {
    const std::size_t room = roomForLine(m_texts[number]);
    const auto bytes = std::make_unique_for_overwrite<char[]>(room); // NOLINT: of that size
    Bytes output(bytes.get(), room);
    const RewrittenLine rewritten = rewriteLine(output, readLine(number), m_version, m_memory);
    if (rewritten.rewriting != Rewriting::done) {
      return false;
    }
    tellDecoding(number, rewritten.quotedPrintable);
    m_output.appendFolded(output.view());
    return true;
  }

  bool writeProperty(std::size_t number) {
    const StoredParts::Properties& properties = StoredParts::of(m_card);
    const VCardProperty& property = propertyOf(number, properties);
    if (!isWrittenSafely() && isEmptyPhoto(property)) {
      return false;
    }
    m_output.append(property, m_version, m_formatter);
    return true;
  }

  /// The property that was made of a line: in the list of its name as many stand before it as lines
  /// of that name before the line.
  [[nodiscard]] const VCardProperty& propertyOf(std::size_t number,
                                                const StoredParts::Properties& properties) const {
    const TextView key = m_lines[number].key;
    const auto before = std::count_if(m_lines.begin(), m_lines.begin() + number,
                                      [key](const CardLine& line) { return line.key == key; });
    return *(**properties.find(key))[static_cast<std::size_t>(before)];
  }

  void writeCompanions(TextView key, TextView group) {
    for (std::size_t i = 0; i < m_companionCount; ++i) {
      const std::size_t number = m_companions[i];
      const CardLine& companion = m_lines[number];
      if (companion.key == key && companion.groupSize != 0 &&
          equalAsciiIgnoringCase(groupOf(number), group)) {
        write(number);
      }
    }
  }

  CardOutput& m_output;
  const VCard& m_card;
  const TextView* m_texts; ///< of the lines
  const char16_t* m_storeEnd;
  const char16_t* m_storeBegin;
  std::size_t m_count;
  std::size_t m_countBeforeVersion;
  VersionCode m_readAs;
  VersionCode m_version;
  VersionCode m_stated; ///< 0 but where it is written safely
  DateFormatter* m_formatter;
  HeaderMemory& m_memory;
  std::size_t m_companionCount = 0;
  std::size_t m_waitingBegin = 0; ///< of what is to be appended
  std::size_t m_waitingEnd = 0;
  LineOrder m_order;
  union {
    std::array<CardLine, kMostLines> m_lines; ///< filled as far as they were rewritten
  };
  std::array<std::uint8_t, kMostLines> m_companions; // NOLINT: numbers of the labels and formats
  std::array<char, 32'768> m_bytes;                  // NOLINT: filled by rewriteLine
};

bool isPlainEnough(const detail::CardLines& lines, VersionCode version) noexcept {
  return lines.version != 0 && lines.count <= kMostLines && version >= 2 && version <= 4;
}

} // namespace

bool appendUnchanged(CardOutput& output, const VCard& card, const detail::CardLines& lines,
                     VersionCode version, DateFormatter* formatter) {
  if (!isPlainEnough(lines, version)) {
    return false;
  }
  UnchangedCard unchanged(output, card, lines, version, formatter, 0);
  if (!unchanged.rewrite()) {
    return false;
  }
  unchanged.write();
  return true;
}

bool appendUnchangedSafely(CardOutput& output, const VCard& card, const detail::CardLines& lines,
                           VersionCode version, DateFormatter* formatter, VersionCode stated) {
  if (!isPlainEnough(lines, version)) {
    return false;
  }
  UnchangedCard unchanged(output, card, lines, version, formatter, stated);
  if (!unchanged.rewrite() || !unchanged.hasPlainCompanions()) {
    return false;
  }
  unchanged.write();
  return true;
}

VersionCode plainlyStatedVersion(const detail::CardLines& lines) noexcept {
  if (lines.version == 0) {
    return 0;
  }
  const std::size_t stating = lines.first + lines.countBeforeVersion - 1;
  for (std::size_t number = lines.first; number < stating; ++number) {
    // A version that could not be read may state one when it is written: without a NUL, say.
    const TextView other = lines.store->lines[number];
    const std::optional<LineName> name = nameOf(other);
    if (!name || name->key(other) == cVCardProperty_VERSION) {
      return 0;
    }
  }
  return versionOfPlainLine(lines.store->lines[stating]);
}

} // namespace cardwright
