#include "cardwright/vcard_n_value.h"

#include "cardwright/vocabulary.h"
#include "values/components.h"

#include <algorithm>

namespace cardwright {

std::optional<TextView> VCardNValue::type() const noexcept {
  return cVCardValue_N;
}

bool VCardNValue::isEmpty() const noexcept {
  return std::all_of(m_slots.begin(), m_slots.end(),
                     [](const Slot& slot) { return !slot || slot->empty(); });
}

bool VCardNValue::parse(TextView text, VersionCode /*version*/, DateFormatter* /*formatter*/) {
  changed();
  readSlots(m_slots, text, *this);
  return true;
}

void VCardNValue::generate(Text& output, VersionCode /*version*/,
                           DateFormatter* /*formatter*/) const {
  writeSlots(output, m_slots);
}

} // namespace cardwright
