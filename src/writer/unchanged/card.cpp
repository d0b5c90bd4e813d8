#include "writer/unchanged/card.h"

#include "base/case.h"
#include "cardwright/vcard_utilities.h"
#include "cardwright/vocabulary.h"
#include "model/line_store.h"
#include "writer/companions.h"
#include "writer/folding.h"
#include "writer/unchanged/line.h"

#include <array>
#include <cstdint>
#include <memory>

namespace cardwright {

namespace {

/// Memory for one line after the other.
class Room {
 public:
  [[nodiscard]] char16_t* atLeast(std::size_t units) {
    if (units <= m_few.size()) {
      return m_few.data();
    }
    if (units > m_size) {
      m_size = units;
      m_many = std::make_unique_for_overwrite<char16_t[]>(units); // NOLINT: an array of that size
    }
    return m_many.get();
  }

 private:
  std::array<char16_t, kOrdinaryRoom> m_few; // NOLINT: filled by its users
  std::unique_ptr<char16_t[]> m_many;        // NOLINT: likewise
  std::size_t m_size = 0;
};

class UnchangedCard {
 public:
  /// A card of more lines is rare, and takes its time anyway.
  static constexpr std::size_t kMost = 64;

  UnchangedCard(Text& output, const StoredParts::Properties& properties, VersionCode version,
                DateFormatter* formatter) noexcept
      : m_output(output), m_properties(properties), m_version(version), m_formatter(formatter) {}

  /// Finds the name of each line and its place.
  bool order(const detail::CardLines& lines) {
    const TextView* const texts = lines.store->lines.data() + lines.first;
    for (; m_count < lines.count; ++m_count) {
      ReadLine& line = m_lines[m_count];
      line.line = texts[m_count];
      line.readAs = m_count < lines.countBeforeVersion ? 0 : lines.version;
      if (!findName(line)) {
        return false;
      }
      std::size_t place = m_count;
      for (; place > 0 && isBefore(line, m_lines[m_places[place - 1]]); --place) {
        m_places[place] = m_places[place - 1];
      }
      m_places[place] = static_cast<std::uint8_t>(m_count);
      if (line.key == kLabelKey || line.key == kAddressFormatKey) {
        m_companions[m_companionCount++] = static_cast<std::uint8_t>(m_count);
      }
    }
    return true;
  }

  void write() {
    VCardUtilities::appendCRLF(m_output, cVCardComponent_BEGINVCARD);
    for (std::size_t place = 0; place < m_count; ++place) {
      const ReadLine& line = m_lines[m_places[place]];
      if (line.key == kLabelKey || line.key == kAddressFormatKey) {
        continue;
      }
      if (write(line) && line.hasGroup()) {
        writeCompanions(kLabelKey, line.group());
        if (line.key == cVCardProperty_ADR) {
          writeCompanions(kAddressFormatKey, line.group());
        }
      }
    }
    VCardUtilities::appendCRLF(m_output, cVCardComponent_ENDVCARD);
  }

 private:
  static bool isBefore(const ReadLine& a, const ReadLine& b) noexcept {
    return a.order != b.order ? a.order < b.order : a.key < b.key;
  }

  /// False for a photo that is left out.
  bool write(const ReadLine& line) {
    if (writeFromLine(line)) {
      return true;
    }
    if (!m_hasFetched && line.readAs == 2) {
      // Where one line has to be decoded, others have.
      StoredParts::fetch(m_properties);
      m_hasFetched = true;
    }
    const VCardProperty& property = propertyOf(line);
    if (isEmptyPhoto(property)) {
      return false;
    }
    property.generate(m_output, m_version, m_formatter);
    return true;
  }

  bool writeFromLine(const ReadLine& line) {
    const std::optional<std::size_t> room = roomForLine(line.line);
    const auto written = room ? asWritten(m_room.atLeast(*room), line, m_version) : std::nullopt;
    if (written) {
      appendLine(m_output, *written);
    }
    return written.has_value();
  }

  /// The property that was made of a line: in the list of its name as many stand before it as lines
  /// of that name before the line.
  [[nodiscard]] const VCardProperty& propertyOf(const ReadLine& line) const {
    std::size_t number = 0;
    for (const ReadLine* other = m_lines.data(); other != &line; ++other) {
      number += other->key == line.key ? 1 : 0;
    }
    return *(**m_properties.find(line.key))[number];
  }

  void writeCompanions(TextView key, TextView group) {
    for (std::size_t i = 0; i < m_companionCount; ++i) {
      const ReadLine& companion = m_lines[m_companions[i]];
      if (companion.key == key && companion.hasGroup() &&
          equalIgnoringCase(companion.group(), group)) {
        write(companion);
      }
    }
  }

  Text& m_output;
  const StoredParts::Properties& m_properties;
  VersionCode m_version;
  DateFormatter* m_formatter;
  union {
    std::array<ReadLine, kMost> m_lines; ///< filled as far as m_count tells
  };
  std::array<std::uint8_t, kMost> m_places;     // NOLINT: numbers of the lines, as they are written
  std::array<std::uint8_t, kMost> m_companions; // NOLINT: numbers of the labels and formats
  std::size_t m_count = 0;
  std::size_t m_companionCount = 0;
  bool m_hasFetched = false;
  Room m_room;
};

} // namespace

bool appendUnchanged(Text& output, const detail::CardLines& lines,
                     const StoredParts::Properties& properties, VersionCode version,
                     DateFormatter* formatter) {
  if (lines.version == 0 || lines.count > UnchangedCard::kMost || version < 2 || version > 4) {
    return false;
  }
  UnchangedCard card(output, properties, version, formatter);
  if (!card.order(lines)) {
    return false;
  }
  card.write();
  return true;
}

} // namespace cardwright
