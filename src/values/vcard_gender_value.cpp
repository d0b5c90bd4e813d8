#include "cardwright/vcard_gender_value.h"

#include "cardwright/vcard_utils.h"
#include "cardwright/vocabulary.h"

namespace cardwright {

std::optional<TextView> VCardGenderValue::type() const noexcept {
  return cVCardValue_Gender;
}

bool VCardGenderValue::parse(TextView text, VersionCode /*version*/, DateFormatter* /*formatter*/) {
  changed();
  const std::size_t semicolon = text.find(u';');
  setSex(VCardUtils::decodeTextValue(text.substr(0, semicolon), quotedPrintable(), charset()));
  if (semicolon != TextView::npos) {
    setIdentity(
        VCardUtils::decodeTextValue(text.substr(semicolon + 1), quotedPrintable(), charset()));
  }
  return true;
}

void VCardGenderValue::generate(Text& output, VersionCode /*version*/,
                                DateFormatter* /*formatter*/) const {
  VCardUtils::writeTextValue(sex(), output, true);
  if (identity()) {
    output.push_back(u';');
    VCardUtils::writeTextValue(identity(), output, true);
  }
}

} // namespace cardwright
