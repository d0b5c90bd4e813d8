#include "cardwright/vcard_org_value.h"

#include "cardwright/vcard_utils.h"
#include "cardwright/vocabulary.h"
#include "values/components.h"

namespace cardwright {

std::optional<TextView> VCardOrgValue::type() const noexcept {
  return cVCardValue_Org;
}

bool VCardOrgValue::parse(TextView text, VersionCode /*version*/, DateFormatter* /*formatter*/) {
  changed();
  ComponentWalker walker(text);
  while (!walker.atEnd()) {
    m_parts.push_back(
        VCardUtils::decodeTextValue(walker.next(), quotedPrintable(), charset()).value_or(Text()));
  }
  return true;
}

void VCardOrgValue::generate(Text& output, VersionCode /*version*/,
                             DateFormatter* /*formatter*/) const {
  writeJoined(output, m_parts, u';');
}

} // namespace cardwright
