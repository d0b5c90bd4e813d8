#include "cardwright/date_formatter.h"
#include "cardwright/vcard.h"
#include "reader/content_line.h"
#include "reader/line_store.h"

namespace cardwright {

void VCard::readProperties() const {
  std::call_once(m_reading, [this] {
    PropertyStore properties;
    DateFormatter formatter("en_US_POSIX");
    for (std::size_t i = 0; i < m_unread.count; ++i) {
      const VersionCode version = i < m_unread.countBeforeVersion ? 0 : m_unread.version;
      auto property = std::make_shared<VCardProperty>();
      static_cast<void>(ContentLineParser(version, &formatter)
                            .parse(m_unread.store->lines[m_unread.first + i], *property));
      addTo(properties, std::move(property));
    }
    if (m_unread.version == 0) {
      addTo(properties, VCardProperty::propertyForVersion(3));
    }
    m_properties = std::move(properties);
    m_unread = {};
    m_isUnread.store(false, std::memory_order_release);
  });
}

} // namespace cardwright
