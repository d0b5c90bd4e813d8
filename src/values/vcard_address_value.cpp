#include "cardwright/vcard_address_value.h"

#include "cardwright/vocabulary.h"
#include "values/components.h"

namespace cardwright {

std::optional<TextView> VCardAddressValue::type() const noexcept {
  return cVCardValue_Address;
}

bool VCardAddressValue::parse(TextView text, VersionCode /*version*/,
                              DateFormatter* /*formatter*/) {
  changed();
  readSlots(m_slots, text, *this);
  return true;
}

void VCardAddressValue::generate(Text& output, VersionCode /*version*/,
                                 DateFormatter* /*formatter*/) const {
  writeSlots(output, m_slots);
}

} // namespace cardwright
