#include "cardwright/vcard_object.h"

#include "cardwright/date_formatter.h"

namespace cardwright {

VCardObject::~VCardObject() = default;

Text VCardObject::description() const {
  Text text;
  DateFormatter formatter;
  generate(text, 0, &formatter);
  return text;
}

bool VCardObject::parse(TextView /*text*/, VersionCode /*version*/, DateFormatter* /*formatter*/) {
  return false;
}

void VCardObject::generate(Text& /*output*/, VersionCode /*version*/,
                           DateFormatter* /*formatter*/) const {}

} // namespace cardwright
