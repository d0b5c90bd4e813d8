#include "base/arena.h"
#include "cardwright/date_formatter.h"
#include "cardwright/vcard.h"
#include "model/line_store.h"
#include "reader/content_line.h"

#include <algorithm>

namespace cardwright {

void VCard::readProperties() const {
  std::call_once(m_reading, [this] {
    // What is made of an ordinary line: a property, its value, perhaps a parameter.
    constexpr std::size_t kBytesForLine = 320;
    Arena::Hold arena = Arena::make(m_lines.store->pool, m_lines.store, *m_lines.changes,
                                    m_lines.count * kBytesForLine);
    PropertyStore properties;
    properties.reserve(std::min(m_lines.count + 1, PropertyStore::kLinearLimit));
    DateFormatter formatter("en_US_POSIX");
    ContentLineParser parser(0, &formatter, arena.get());
    for (std::size_t i = 0; i < m_lines.count; ++i) {
      if (i == m_lines.countBeforeVersion) {
        parser.setVersion(m_lines.version);
      }
      auto property = makeIn<VCardProperty>(arena.get());
      static_cast<void>(parser.parse(m_lines.store->lines[m_lines.first + i], *property));
      addUpperCased(properties, std::move(property), arena.get());
    }
    if (m_lines.version == 0) {
      addUpperCased(properties, VCardProperty::propertyForVersion(3), nullptr);
    }
    m_properties = std::move(properties);
    m_lines.changes->clear();
    m_lines.arena = std::move(arena);
    m_isUnread.store(false, std::memory_order_release);
  });
}

} // namespace cardwright
