#include "base/arena.h"
#include "cardwright/date_formatter.h"
#include "cardwright/vcard.h"
#include "reader/content_line.h"
#include "reader/line_store.h"

#include <algorithm>

namespace cardwright {

void VCard::readProperties() const {
  std::call_once(m_reading, [this] {
    // What is made of an ordinary line: a property, its value, perhaps a parameter.
    constexpr std::size_t kBytesForLine = 320;
    const Arena::Hold arena =
        Arena::make(m_unread.store->pool, m_unread.store, m_unread.count * kBytesForLine);
    PropertyStore properties;
    properties.reserve(std::min(m_unread.count + 1, PropertyStore::kLinearLimit));
    DateFormatter formatter("en_US_POSIX");
    ContentLineParser parser(0, &formatter, arena.get());
    for (std::size_t i = 0; i < m_unread.count; ++i) {
      if (i == m_unread.countBeforeVersion) {
        parser.setVersion(m_unread.version);
      }
      auto property = makeIn<VCardProperty>(arena.get());
      static_cast<void>(parser.parse(m_unread.store->lines[m_unread.first + i], *property));
      addUpperCased(properties, std::move(property), arena.get());
    }
    if (m_unread.version == 0) {
      addUpperCased(properties, VCardProperty::propertyForVersion(3), nullptr);
    }
    m_properties = std::move(properties);
    m_unread = {};
    m_isUnread.store(false, std::memory_order_release);
  });
}

} // namespace cardwright
